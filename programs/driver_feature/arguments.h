// The program's command line as rows. Reading a line, completing its words and
// writing the manual page all use them.
#ifndef PROGRAMS_DRIVER_FEATURE_ARGUMENTS_H_
#define PROGRAMS_DRIVER_FEATURE_ARGUMENTS_H_

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"
#include "host/session/session.h"

namespace driver_feature::cli {

enum Trait : unsigned {
  kOptional = 0,
  kRequired = 1,
  kRepeats = 2,  // Of an option: it may be given several times. Else: several words.
};

// One argument of a command or of the program.
struct ArgumentRow {
  const char* name;   // "DESC", "--output" or "-o,--option".
  const char* kinds;  // What the words after it are: "FILE", "GROUP FILE"; "" for a flag.
  const char* meaning;
  unsigned traits = kOptional;
  const char* excludes = "";  // The name of an option that cannot be given with it.

  bool isOption() const { return *name == '-'; }
  bool isFlag() const { return *kinds == '\0'; }
  bool has(Trait trait) const { return (traits & trait) != 0; }
};

// The spellings of an option: "-o", "--option". The last one is its name in
// Arguments.
std::vector<std::string> spellingsOf(const ArgumentRow& row);

// The kind of each word after an option or of a positional argument: "FILE".
std::vector<std::string> kindsOf(const ArgumentRow& row);

// What a line says, by the names of its arguments.
class Arguments {
 public:
  using Values = std::map<std::string, std::vector<std::string>, std::less<>>;

  explicit Arguments(Values values) : values_(std::move(values)) {}

  bool has(std::string_view name) const { return values_.contains(name); }

  // All words after the argument, in the order of the line; empty without it.
  const std::vector<std::string>& texts(std::string_view name) const;

  // The first of them; `otherwise` without the argument.
  std::string text(std::string_view name, const std::string& otherwise = "") const;

 private:
  Values values_;
};

struct CommandRow {
  const char* name;
  const char* summary;
  const char* footer;  // The last part of its help.
  std::span<const ArgumentRow> own;
  std::span<const ArgumentRow> shared;  // Rows that other commands have, too.
  // Does the work and returns the program's exit status. `general` holds the
  // values of the general options.
  host::Result<int> (*run)(const Arguments& arguments, const host::SessionRequest& general);
  // Whether it runs routines of a description, which can end the process.
  bool runsRoutines = false;

  std::vector<const ArgumentRow*> arguments() const;
};

struct ProgramRows {
  const char* name;
  const char* summary;
  const char* footer;
  std::span<const ArgumentRow> general;
  std::span<const CommandRow* const> commands;  // In the order of the help.
};

// Reads a line. Refused, with a hint to the help, if it cannot be understood. For
// --help, the text to print is in Line::help.
struct Line {
  const CommandRow* command = nullptr;  // Null when it names none.
  Arguments arguments{{}};
  std::string help;  // The text to print, when the line asks for it.
};
host::Result<Line> readLine(const ProgramRows& program, int argc, const char* const* argv);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_ARGUMENTS_H_

// The only source that knows the library which reads command lines.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kHelp = "--help";

CLI::Option* addArgument(CLI::App& app, const ArgumentRow& row, Arguments::Values& values) {
  const std::string name = spellingsOf(row).back();
  if (row.isFlag()) {
    return app.add_flag_function(
        row.name, [&values, name](std::int64_t) { values[name]; }, row.meaning);
  }
  const auto keepAll = [&values, name](const std::vector<std::string>& words) {
    values[name] = words;
  };
  const auto keepOne = [&values, name](const std::string& word) { values[name] = {word}; };
  CLI::Option* option =
      row.has(kRepeats)
          ? app.add_option_function<std::vector<std::string>>(row.name, keepAll, row.meaning)
          : app.add_option_function<std::string>(row.name, keepOne, row.meaning);
  const auto words = static_cast<int>(kindsOf(row).size());
  const bool isList = row.has(kRepeats) && !row.isOption();
  option->type_name(std::string(row.kinds) + (isList ? "..." : ""));
  if (words > 1) option->type_size(words);
  if (row.isOption()) option->allow_extra_args(false);
  return option->required(row.has(kRequired));
}

class Reader {
 public:
  Reader(const ProgramRows& program, int argc, const char* const* argv)
      : program_(program), words_(argv, argv + argc), app_(program.summary, program.name) {
    app_.footer(program.footer);
    app_.require_subcommand(0, 1);
    for (const ArgumentRow& row : program.general) add(app_, row);
    for (const CommandRow* command : program.commands) addCommand(*command);
  }

  host::Result<Line> read() {
    try {
      app_.parse(static_cast<int>(words_.size()), words_.data());
    } catch (const CLI::CallForHelp&) {
      return Line{chosen(), Arguments({}), app_.help()};
    } catch (const CLI::ParseError& error) {
      return host::refused(reasonOf(error));
    }
    return Line{chosen(), Arguments(values_), ""};
  }

 private:
  void add(CLI::App& app, const ArgumentRow& row) {
    const std::string name = spellingsOf(row).back();
    if (name == kHelp) return;  // The library adds it to each command.
    CLI::Option* option = addArgument(app, row, values_);
    if (*row.excludes != '\0') option->excludes(latest_.at(row.excludes));
    latest_[name] = option;
  }

  void addCommand(const CommandRow& row) {
    CLI::App* command = app_.add_subcommand(row.name, row.summary);
    command->footer(row.footer);
    command->fallthrough();  // The general options may come after the command.
    // Adding them takes longer than reading the line. No command can be chosen that
    // the line does not name.
    if (std::find(words_.begin(), words_.end(), std::string_view(row.name)) == words_.end()) return;
    for (const ArgumentRow* argument : row.arguments()) add(*command, *argument);
  }

  const CommandRow* chosen() const {
    for (const CommandRow* command : program_.commands) {
      if (app_.got_subcommand(command->name)) return command;
    }
    return nullptr;
  }

  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const CommandRow* command : program_.commands) names.emplace_back(command->name);
    return names;
  }

  std::string reasonOf(const CLI::ParseError& error) const {
    const CommandRow* command = chosen();
    const std::string name = command != nullptr ? std::string(command->name) + " " : "";
    const std::string help =
        "; " + std::string(program_.name) + " " + name + "--help explains the usage";
    if (dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr) return error.what() + help;
    const std::vector<std::string> extras = app_.remaining(true);
    const std::string extra = extras.empty() ? "" : extras.front();
    if (command != nullptr || extra.starts_with('-')) {
      return "\"" + extra + "\" is not expected" + help;
    }
    const auto nearest = host::nearestName(extra, names());
    return "there is no command \"" + extra + "\"; " +
           (nearest ? "did you mean \"" + *nearest + "\"?"
                    : "give one of " + host::join(names(), ", "));
  }

  const ProgramRows& program_;
  const std::vector<const char*> words_;
  CLI::App app_;
  Arguments::Values values_;
  std::map<std::string, CLI::Option*> latest_;  // The options that were added, by name.
};

}  // namespace

host::Result<Line> readLine(const ProgramRows& program, int argc, const char* const* argv) {
  return Reader(program, argc, argv).read();
}

}  // namespace driver_feature::cli

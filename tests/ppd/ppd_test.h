// Imports a PPD file with the program, and reads it with libcups, too.
#ifndef TESTS_PPD_PPD_TEST_H_
#define TESTS_PPD_PPD_TEST_H_

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/program_runner.h"

// What the user chooses: an option of a feature, or a value.
using Settings = std::vector<std::pair<std::string, std::string>>;

class MarkedPpd;

class PpdTest : public ProgramTest {
 protected:
  // Copies a file of tests/ppd/files into the test's folder and imports it to
  // NAME.xml. Returns the lines on standard error.
  std::string import(const std::string& name) const;

  // Imports a file of these lines, below the first one of every PPD file, to
  // odd.xml. Returns the lines on standard error.
  std::string importLines(const std::string& lines) const;

  // The same file as libcups reads it.
  MarkedPpd odd() const;

  // What the imported description gives with the settings.
  std::string postScript(const std::string& name, const Settings& settings = {}) const;
  std::string pjl(const std::string& name, const Settings& settings = {}) const;

  // The text of a section of the PostScript, as a reader of it takes it out.
  static std::string section(const std::string& postScript, const std::string& name);

  static std::string sourceFile(const std::string& name);
};

// A PPD file as libcups itself reads, marks and writes it.
class MarkedPpd {
 public:
  explicit MarkedPpd(const std::string& path);

  void mark(const std::string& keyword, const std::string& choice);

  // What libcups writes.
  std::string text(ppd_section_t section);
  std::string jobStart();  // JCLBegin, JCLSetup and JCLToPSInterpreter.

  // What is marked: a choice, or "not set".
  std::string choice(const std::string& keyword);

 private:
  std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd_;
};

#endif  // TESTS_PPD_PPD_TEST_H_

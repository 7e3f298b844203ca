// What the built program says of itself, as its tests need it.
#ifndef TESTS_HELP_COMMANDS_H_
#define TESTS_HELP_COMMANDS_H_

#include <set>
#include <string>
#include <vector>

#include "host/program_runner.h"

// A folder with the program on the search path and with the files that the
// examples of its help name.
class HelpTest : public ProgramTest {
 protected:
  HelpTest();

  // Runs a line of a shell in the folder. The program finds there the routines
  // of the shipped descriptions by itself.
  RunResult runShell(const std::string& line) const;

  // The text of "driver-feature COMMAND --help"; of the program for "".
  std::string help(const std::string& command) const;

  // The commands that the program's help lists.
  std::vector<std::string> commands() const;
};

// The options that a text lists, each spelling for itself; not what is within
// other words or in examples.
std::set<std::string> optionsListedIn(const std::string& text);

// The lines of a help text that are examples to be typed.
std::vector<std::string> examplesOf(const std::string& help);

std::vector<std::string> linesOf(const std::string& text);

#endif  // TESTS_HELP_COMMANDS_H_

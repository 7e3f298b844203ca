// Runs scripts in the shell of the built program.
#ifndef TESTS_HOST_SHELL_FIXTURE_H_
#define TESTS_HOST_SHELL_FIXTURE_H_

#include <string>
#include <vector>

#include "host/program_runner.h"

class ShellTest : public ProgramTest {
 protected:
  // Writes office.xml: features of every type, one with a change routine, and
  // a dynamic group.
  ShellTest();

  // Runs the lines as a script, with both streams apart.
  RunResult runScript(const std::vector<std::string>& lines,
                      const std::vector<std::string>& arguments = {}) const;

  // What a script shows on a terminal: both streams in one, in their order.
  // The script must end with status 0.
  std::string transcriptOf(const std::vector<std::string>& lines,
                           const std::vector<std::string>& arguments = {}) const;
};

#endif  // TESTS_HOST_SHELL_FIXTURE_H_

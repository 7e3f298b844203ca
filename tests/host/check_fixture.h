// Runs the command "check" on descriptions that a test writes.
#ifndef TESTS_HOST_CHECK_FIXTURE_H_
#define TESTS_HOST_CHECK_FIXTURE_H_

#include <regex>
#include <string>
#include <vector>

#include "host/program_runner.h"

inline constexpr const char* kBaseInfo =
    "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
    " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>";

class CheckTest : public ProgramTest {
 protected:
  CheckTest() { letCrashesEndPrograms(); }

  // Without the lines of the file and without the hint at the end, which
  // check_report_test.cc compares.
  RunResult check(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {"check", "--callbacks", ROUTINES_LIBRARY};
    all.insert(all.end(), arguments.begin(), arguments.end());
    RunResult result = run(all);
    static const std::regex kLineOfFile("(^|\n)(?: *[0-9]+ \\| [^\n]*\n +\\| +\\^\n)");
    static const std::regex kHint("; --explain CODE says what the code of a finding means\n$");
    result.output = std::regex_replace(result.output, kLineOfFile, "$1");
    result.output = std::regex_replace(result.output, kHint, "\n");
    return result;
  }

  void describeRow(const std::vector<std::string>& elements,
                   const std::vector<std::string>& additions = {}) const {
    std::vector<std::string> lines = {kBaseInfo};
    lines.insert(lines.end(), elements.begin(), elements.end());
    describe("d.xml", lines);
    if (additions.empty()) return;
    std::string text = "<Driver>\n" + read("d.xml");
    for (const std::string& line : additions) text += line + "\n";
    write("d.xml", text + "</Driver>\n");
  }
};

#endif  // TESTS_HOST_CHECK_FIXTURE_H_

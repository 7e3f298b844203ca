// Runs the command "check" on descriptions that a test writes.
#ifndef TESTS_HOST_CHECK_FIXTURE_H_
#define TESTS_HOST_CHECK_FIXTURE_H_

#include <string>
#include <vector>

#include "host/program_runner.h"

inline constexpr const char* kBaseInfo =
    "<BaseFeatureInfo DefaultCallbackHandler='DriverFeatureHostUpdate'"
    " LoadVORNCallbackHandler='DriverFeatureHostLoad'/>";

class CheckTest : public ProgramTest {
 protected:
  RunResult check(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {"check", "--callbacks", ROUTINES_LIBRARY};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all);
  }

  void describeRow(const std::vector<std::string>& elements) const {
    std::vector<std::string> lines = {kBaseInfo};
    lines.insert(lines.end(), elements.begin(), elements.end());
    describe("d.xml", lines);
  }
};

#endif  // TESTS_HOST_CHECK_FIXTURE_H_

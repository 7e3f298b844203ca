#include "equivalence/program_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <csignal>

namespace driver_feature::equivalence {

namespace {

ProgramOutput shell(const std::string& script, const std::string& input = "") {
  return runProgram("/bin/sh", {"-c", script, "sh", "a b"}, {{"SET", "value"}, {"UNSET", ""}},
                    input);
}

TEST(ProgramRun, BothStreamsAndTheStatus_AreTaken) {
  const ProgramOutput output = shell("echo out; echo err >&2; exit 3");
  EXPECT_EQ(output.output, "out\n");
  EXPECT_EQ(output.errors, "err\n");
  EXPECT_EQ(output.status, 3);
}

TEST(ProgramRun, ArgumentsAndVariables_ArriveAsTheyAre) {
  ::setenv("UNSET", "here", 1);
  EXPECT_EQ(shell("echo \"$1,$SET,${UNSET-none}\"").output, "a b,value,none\n");
  ::unsetenv("UNSET");
}

TEST(ProgramRun, Input_IsTheFileOrNothing) {
  EXPECT_EQ(shell("cat").output, "");
  EXPECT_EQ(shell("head -c 9", "/dev/zero").output, std::string(9, '\0'));
}

TEST(ProgramRun, LongOutput_IsWhole) {
  EXPECT_EQ(shell("head -c 300000 /dev/zero").output.size(), 300000U);
}

TEST(ProgramRun, UnusualEnds_HaveTheirStatus) {
  EXPECT_EQ(shell("kill -9 $$").status, 1000 + SIGKILL);
  EXPECT_EQ(runProgram("/none", {}, {}).status, 127);
}

}  // namespace

}  // namespace driver_feature::equivalence

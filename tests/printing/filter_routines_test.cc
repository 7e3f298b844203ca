// Routines of a description in the built filter.

#include <gmock/gmock.h>

#include <utility>

#include "printing/filter_fixture.h"

namespace {

using testing::HasSubstr;

class FilterRoutinesTest : public FilterTest {
 protected:
  FilterRoutinesTest() {
    set("DRIVER_FEATURE_DESCRIPTION", "printer.xml");
    set("DRIVER_FEATURE_ROUTINES", ROUTINES_LIBRARY);
  }
};

TEST_F(FilterRoutinesTest, MissingRoutine_IsWarnedOf) {
  describe("printer.xml", {feature("UIOnly", "A", "AddPSCallbackRoutine='absentRoutine'")});
  const RunResult result = withoutDebug(filter(""));
  EXPECT_EQ(result.errors,
            "WARNING: misuse: serialize() - Cannot load PS Command callback: absentRoutine\n" +
                kTwoPages);
  EXPECT_EQ(result.status, 0);
}

TEST_F(FilterRoutinesTest, RoutineThatDoesNotReturn_FailsTheJobAndIsNamed) {
  letCrashesEndPrograms();
  const std::pair<std::string, std::string> rows[] = {
      {"PSCallbackRoutine='crashInOutput'", "crashed (signal 11, Segmentation fault); correct it"},
      {"CallbackRoutine='abortProcess'", "crashed (signal 6, Aborted); correct it"},
      {"PJLCallbackRoutine='exitInOutput'", "ended the process with exit status 0; let it return"},
      {"PSCallbackRoutine='leaveInOutput'", "ended the process with exit status 0; let it return"},
      {"PSCallbackRoutine='throwInOutput'",
       "threw an exception: no paper; catch it in the routine"},
      {"CallbackRoutine='throwNumber'",
       "threw an exception that is not derived from std::exception; catch it in the routine"},
  };
  for (const auto& [attribute, fault] : rows) {
    describe("printer.xml", {feature("IntEntry", "A", "Add" + attribute)});
    const std::string name = attribute.substr(attribute.find('\'') + 1);
    EXPECT_EQ(withoutDebug(filter("A=2")),
              failure(1, "ERROR: the routine \"" + name.substr(0, name.size() - 1) +
                             "\" of the description " + fault + "\n"));
  }
  describe("printer.xml", {feature("IntEntry", "A", "AddCallbackRoutine='setOther'"),
                           feature("IntEntry", "B", "AddCallbackRoutine='throwException'")});
  EXPECT_EQ(withoutDebug(filter("A=2")).errors,
            "ERROR: the routine \"throwException\" of the description threw an exception: no "
            "paper; catch it in the routine\n");
}

TEST_F(FilterRoutinesTest, RoutineThatPrints_DoesNotPrintIntoTheJob) {
  describe("printer.xml",
           {feature("IntEntry", "A", "PSCommand='%d a' AddCallbackRoutine='printSomething'")});
  const RunResult result = filter("A=2");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, HasSubstr("\n2 a\n"));
  EXPECT_THAT(result.output, testing::Not(HasSubstr("printed by")));
  EXPECT_THAT(result.errors, HasSubstr("printed by puts\nprinted by a stream\n"));
}

}  // namespace

// Writing when there is no memory: the failure is passed on, and the set can
// be written afterwards.

#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/failing_memory.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

constexpr const char* kCommand = "PSCommand";
const std::string kWriterLacksMemory = "log 1 XMLParser: VORNWriter - Out of memory.";

// Features of each type of value, with texts that do not fit into a string
// object, some of them in a group.
class OutputAllocationFailureTest : public ::testing::Test {
 protected:
  OutputAllocationFailureTest() {
    number("a: signed", "a signed number: %+020d;");
    number("b: unsigned", "an unsigned number: %#020X;");
    DriverFeature& text = model_.feature("c: text", 3, {{kCommand, "a text with blanks: %12s;"}});
    text.setFeatureProperty(std::string("CurrentTextValue"), std::string("Report"));
    fraction("d: fixed", "a number with a point: %.25f;");
    fraction("e: hexadecimal", "in the base sixteen: %#.20a;");
    DriverFeature& member = number("f: member of the group", "%d");
    model_.group("a group with a long name", {{kCommand, "the text of the group: %s;"}}, {&member});
    for (const char* name : {"a: signed", "c: text", "d: fixed"}) {
      CoreFeature* feature = masterSet().FindFeatureInFeatureList(std::string(name));
      feature->setFeatureProperty(std::string("TESKOAAttributeName"),
                                  std::string("the-name-of-an-attribute"));
      feature->setFeatureProperty(std::string("TESKAttributeSyntax"),
                                  std::string("the-name-of-a-syntax"));
    }
  }

  ~OutputAllocationFailureTest() override { failingMemory.stop(); }

  DriverFeature& number(const std::string& name, const char* commandTemplate) {
    DriverFeature& feature = model_.feature(name, 2);
    feature.setFeatureProperty(std::string(kCommand), std::string(commandTemplate));
    feature.setFeatureProperty(std::string("CurrentIntValue"), 42);
    return feature;
  }

  void fraction(const std::string& name, const char* commandTemplate) {
    DriverFeature& feature = model_.feature(name, 4);
    feature.setFeatureProperty(std::string(kCommand), std::string(commandTemplate));
    feature.setFeatureProperty(std::string("CurrentFloatValue"), 1.5F);
  }

  // Writes with each allocation failing in turn. Returns what the last attempt
  // wrote, which had all it asked for. The platform's ticket writer reports a lack
  // of memory; the library's own is passed on.
  std::string writeWithFailures(int type, long& failures) {
    std::string output;
    host_.takeEvents();
    failures = failEachAllocation([this, &output, type] {
      try {
        masterSet().serialize(output, type, true, "first", "second");
        const auto events = host_.takeEvents();
        const bool isReported = !events.empty() && events.front() == kWriterLacksMemory;
        EXPECT_EQ(failingMemory.hasFailed(), isReported) << "the failure has been swallowed";
      } catch (const std::bad_alloc&) {
        EXPECT_TRUE(failingMemory.hasFailed());
      }
    });
    return output;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(OutputAllocationFailureTest, PostScript_AnyAllocationFails_IsPassedOnAndLeavesTheSet) {
  long failures = 0;
  EXPECT_EQ(writeWithFailures(1, failures),
            "a signed number: +0000000000000000042;"
            "an unsigned number: 0X00000000000000002A;"
            "a text with blanks:       Report;"
            "a number with a point: 1.5000000000000000000000000;"
            "in the base sixteen: 0x1.80000000000000000000p+0;"
            "the text of the group: 42;");
  // One for the text of each feature and of the group, at the least.
  EXPECT_GE(failures, 6);
}

TEST_F(OutputAllocationFailureTest, Ticket_AnyAllocationFails_IsPassedOnAndLeavesTheSet) {
  std::string expected;
  masterSet().serialize(expected, 2, true, "first", "second");
  ASSERT_NE(expected.find("the-name-of-an-attribute"), std::string::npos);
  long failures = 0;
  EXPECT_EQ(writeWithFailures(2, failures), expected);
  EXPECT_GE(failures, 3);
}

// What was read of the template before must not be written instead of the new one.
TEST(TemplateAllocationFailureTest, AnyAllocationFails_TheTextIsThatOfTheTemplateThatIsKept) {
  RecordingHost host;
  ModelBuilder model;
  DriverFeature& feature = model.feature("a list", 1, {{kCommand, "the first template: %s;"}});
  model.option(feature, "A4", {{kCommand, "a4"}});
  const std::string name = kCommand;
  const std::string later = "the second template, which is longer: %s;";
  std::string kept(100, ' ');
  std::string output(200, ' ');
  const auto expectKeptIsWritten = [&] {
    feature.getFeatureProperty(name, kept);
    masterSet().serialize(output, 1, false, nullptr, nullptr);
    EXPECT_EQ(output, kept.substr(0, kept.size() - 3) + "a4;");
  };
  const long failures = failEachAllocation([&] {
    try {
      feature.setFeatureProperty(name, later);
      EXPECT_FALSE(failingMemory.hasFailed()) << "the failure has been swallowed";
    } catch (const std::bad_alloc&) {
      expectKeptIsWritten();
      EXPECT_EQ(kept, "the first template: %s;");
    }
  });
  expectKeptIsWritten();
  EXPECT_EQ(kept, later);
  EXPECT_GE(failures, 2);
}

}  // namespace
}  // namespace driver_feature::testing

// The set written as PostScript and PJL.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

extern "C" {

void AppendFeatureText(DriverFeatureSet* set, std::string& text) {
  using driver_feature::testing::RecordingHost;
  const bool isMaster = set == &driver_feature::masterSet();
  RecordingHost::record(std::string("feature routine, ") + (isMaster ? "master set" : "other set") +
                        ", \"" + text + '"');
  text += "[routine]";
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A set that cannot find its feature at position 1.
class SetWithoutSecond : public DriverFeatureSet {
 public:
  DriverFeature* fetchFeatureByIndex(int index) override {
    return index == 1 ? nullptr : DriverFeatureSet::fetchFeatureByIndex(index);
  }
};

struct Output {
  const char* word;
  int type;
  const char* command;
  const char* routine;
};

constexpr Output kOutputs[] = {
    {"PJL", 0, "PJLCommand", "AddPJLCallbackRoutine"},
    {"PS", 1, "PSCommand", "AddPSCallbackRoutine"},
};

class SerializationTest : public ::testing::TestWithParam<Output> {
 protected:
  static std::string serialize(DriverFeatureSet& set = masterSet()) {
    std::string output = "left over";
    set.serialize(output, GetParam().type, false, nullptr, nullptr);
    return output;
  }

  DriverFeature& number(const std::string& name, const char* commandTemplate) {
    return model_.feature(name, 2, {{GetParam().command, commandTemplate}});
  }

  DriverFeatureStaticGroup& group(const std::string& name, const char* commandTemplate,
                                  std::initializer_list<CoreFeature*> members = {}) {
    return model_.group(name, {{GetParam().command, commandTemplate}}, members);
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_P(SerializationTest, EmptySet_GivesAnEmptyText) {
  EXPECT_EQ(serialize(), "");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(SerializationTest, Features_AreWrittenInTheOrderOfTheirNames) {
  number("b", "[b%d]");
  number("B", "[B%d]");
  number("A", "[A%d]");
  EXPECT_EQ(serialize(), "[A0][B0][b0]");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(SerializationTest, FeatureOfTheOtherLanguage_AddsNothing) {
  model_.feature("A", 2, {{GetParam().type == 0 ? "PSCommand" : "PJLCommand", "other%d"}});
  number("B", "[B%d]");
  EXPECT_EQ(serialize(), "[B0]");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(SerializationTest, FeatureRoutine_WritesIntoTheTextSoFar) {
  number("A", "[A%d]");
  model_.feature("B", 0, {{GetParam().routine, "AppendFeatureText"}});
  number("C", "[C%d]");
  EXPECT_EQ(serialize(), "[A0][routine][C0]");
  EXPECT_THAT(host_.takeEvents(), ElementsAre("feature routine, master set, \"[A0]\""));
}

TEST_P(SerializationTest, FeatureWithCommandAndRoutine_IsWrittenByItsCommand) {
  DriverFeature& a = number("A", "[A%d]");
  a.setFeatureProperty(std::string(GetParam().routine), std::string("AppendFeatureText"));
  EXPECT_EQ(serialize(), "[A0]");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(SerializationTest, FeatureRoutine_Unknown_IsLogged) {
  model_.feature("A", 0, {{GetParam().routine, "NoSuchRoutine"}});
  EXPECT_EQ(serialize(), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, std::string("serialize() - Cannot load ") + GetParam().word +
                                         " Command callback: NoSuchRoutine")));
}

TEST_P(SerializationTest, FeatureThatCannotBeFormatted_IsLeftOut) {
  model_.feature("A", 0, {{GetParam().command, "x"}});
  number("B", "[B%d]");
  EXPECT_EQ(serialize(), "[B0]");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "createTicketPDLAttributes() - Feature has an invalid feature "
                                  "type")));
}

TEST_P(SerializationTest, MissingFeature_IsLoggedAndLeftOut) {
  SetWithoutSecond set;
  set.addFeatureToFeatureList("A", &number("A", "[A%d]"));
  set.addFeatureToFeatureList("B", &number("B", "[B%d]"));
  set.addFeatureToFeatureList("C", &number("C", "[C%d]"));
  EXPECT_EQ(serialize(set), "[A0][C0]");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, "serialize() - Cannot get reference to feature 1")));
}

TEST_P(SerializationTest, Groups_AreWrittenAfterTheFeaturesInListOrder) {
  group("Z", "<Z>");
  group("A", "<A>");
  group("M", "<M>");
  number("F", "[F%d]");
  EXPECT_EQ(serialize(), "[F0]<Z><A><M>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(SerializationTest, GroupInGroup_IsWrittenThroughItsGroupOnly) {
  DriverFeatureStaticGroup& inner = group("Inner", "(inner)");
  group("Outer", "<%s>", {&inner});
  EXPECT_EQ(serialize(), "<(inner)>");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, std::string("process") + GetParam().word +
                                         "StaticGroup() - Static group is in a group")));
}

TEST_P(SerializationTest, GroupInGroupWithRoutine_RunsItOnce) {
  DriverFeatureStaticGroup& inner =
      model_.group("Inner", {{GetParam().routine, "AppendFeatureText"}});
  group("Outer", "<%s>", {&inner});
  EXPECT_EQ(serialize(), "<[routine]>");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, std::string("process") + GetParam().word +
                                         "StaticGroup() - Static group is in a group"),
                          "feature routine, master set, \"\""));
}

TEST_P(SerializationTest, DynamicGroup_IsNotWritten) {
  model_.dynamicGroup("D", {{GetParam().command, "never"}});
  EXPECT_EQ(serialize(), "");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Languages, SerializationTest, ::testing::ValuesIn(kOutputs),
                         [](const auto& instance) { return std::string(instance.param.word); });

class SerializationDifferenceTest : public ::testing::Test {
 protected:
  static std::string serialize(int type) {
    std::string output = "left over";
    masterSet().serialize(output, type, true, "one", "two");
    return output;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(SerializationDifferenceTest, FeatureInGroup_IsPassedOverWithoutLoggingInPostScriptOnly) {
  model_.feature("A", 2, {{"PSCommand", "[a]"}, {"PJLCommand", "[a]"}});
  DriverFeature& member = model_.feature("B", 2, {{"PSCommand", "b"}, {"PJLCommand", "b"}});
  model_.group("G", {{"PSCommand", "<%s>"}, {"PJLCommand", "<%s>"}}, {&member});
  EXPECT_EQ(serialize(1), "[a]<b>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(serialize(0), "[a]<b>");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(4, "serialize() - Feature 1 is in a group")));
}

TEST_F(SerializationDifferenceTest, InvalidType_LeavesTheOutputAlone) {
  for (const int type : {3, -1, 1000}) {
    EXPECT_EQ(serialize(type), "left over");
    EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(2, "serialize() - Invalid PDL type")));
  }
}

}  // namespace
}  // namespace driver_feature::testing

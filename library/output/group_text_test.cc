// Static groups as PostScript and PJL. What both do alike is tested for both;
// the deliberate differences have tests of their own.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/group_commands.h"
#include "support/model_builder.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

extern "C" {

void WriteGroupText(DriverFeatureSet* set, std::string& text) {
  using driver_feature::testing::RecordingHost;
  const bool isMaster = set == &driver_feature::masterSet();
  RecordingHost::record(std::string("text routine, ") + (isMaster ? "master set" : "other set") +
                        ", \"" + text + '"');
  text += "[routine]";
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kRoutineRan = "text routine, master set, \"\"";

struct Language {
  const char* word;
  const char* command;
  const char* routine;
  void (*process)(CoreFeature&, DriverFeatureSet*, std::string&, bool);
};

constexpr Language kLanguages[] = {
    {"PS", "PSCommand", "AddPSCallbackRoutine", processPSStaticGroup},
    {"PJL", "PJLCommand", "AddPJLCallbackRoutine", processPJLStaticGroup},
};

class GroupTextTest : public ::testing::TestWithParam<Language> {
 protected:
  static std::string process(CoreFeature& group, bool topLevel = true) {
    std::string output = "left over";
    GetParam().process(group, &masterSet(), output, topLevel);
    return output;
  }

  // "process<PS|PJL>StaticGroup() - TEXT", with "<>" in the text standing for
  // the language's word.
  static std::string line(int level, std::string text) {
    const std::size_t at = text.find("<>");
    if (at != std::string::npos) text.replace(at, 2, GetParam().word);
    return logLine(level, std::string("process") + GetParam().word + "StaticGroup() - " + text);
  }

  DriverFeature& numberFeature(const std::string& name, const char* commandTemplate) {
    return model_.feature(name, 2, {{GetParam().command, commandTemplate}});
  }

  DriverFeatureStaticGroup& group(const std::string& name, const char* commandTemplate,
                                  std::initializer_list<CoreFeature*> members = {}) {
    return model_.group(name, {{GetParam().command, commandTemplate}}, members);
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_P(GroupTextTest, Members_InOrder_AreJoinedInTheTemplate) {
  DriverFeature& b = numberFeature("B", "b%d");
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& g = group("G", "<%s>", {&b, &a, &b});
  EXPECT_EQ(process(g), "<b0a0b0>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(GroupTextTest, NoMembers_Template_IsFormattedWithNothing) {
  EXPECT_EQ(process(group("G", "<%s>")), "<>");
  EXPECT_EQ(process(group("H", "fixed")), "fixed");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(GroupTextTest, LongMembers_ComeOutWhole) {
  DriverFeature& a = numberFeature("A", "%4096d");
  DriverFeature& b = numberFeature("B", "%4096d");
  EXPECT_EQ(process(group("G", "<%s>", {&a, &b})),
            "<" + std::string(4095, ' ') + "0" + std::string(4095, ' ') + "0>");
}

TEST_P(GroupTextTest, NotAStandardGroup_IsLoggedAndEmpty) {
  DriverFeatureStaticGroup& g = group("G", "<%s>");
  g.setFeatureProperty(std::string("FeatureType"), 7);
  g.setFeatureProperty(std::string("FeatureInGroup"), true);
  EXPECT_EQ(process(g), "");
  // The type is looked at before the flag.
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(line(4, "Static group is not a standard static group")));
}

TEST_P(GroupTextTest, FeatureWithAGroupsTypeCode_IsNotAStandardGroup) {
  DriverFeature& feature = numberFeature("F", "%d");
  feature.setFeatureProperty(std::string("FeatureType"), 6);
  EXPECT_EQ(process(feature), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(line(4, "Static group is not a standard static group")));
}

TEST_P(GroupTextTest, GroupInGroup_AtTopLevel_IsLeftToItsGroup) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& inner = group("Inner", "(%s)", {&a});
  DriverFeatureStaticGroup& outer = group("Outer", "<%s>", {&inner});
  EXPECT_EQ(process(inner), "");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line(4, "Static group is in a group")));
  EXPECT_EQ(process(inner, false), "(a0)");
  EXPECT_EQ(process(outer), "<(a0)>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(GroupTextTest, GroupWithoutCommand_IsWrittenByItsRoutine) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& g = model_.group("G", {{GetParam().routine, "WriteGroupText"}}, {&a});
  EXPECT_EQ(process(g), "[routine]");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kRoutineRan));
}

TEST_P(GroupTextTest, GroupWithoutCommand_UnknownRoutine_IsLoggedAndEmpty) {
  DriverFeatureStaticGroup& g = model_.group("G", {{GetParam().routine, "NoSuchRoutine"}});
  EXPECT_EQ(process(g), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(line(2, "Cannot load <> Command callback: NoSuchRoutine")));
}

TEST_P(GroupTextTest, GroupWithoutCommandOrRoutine_IsEmptyWithoutLogging) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& inner = model_.group("Inner", {}, {&a});
  DriverFeature& b = numberFeature("B", "b%d");
  EXPECT_EQ(process(group("Outer", "<%s>", {&inner, &b})), "<b0>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(GroupTextTest, NestedGroupWithRoutine_ContributesItsText) {
  DriverFeatureStaticGroup& inner = model_.group("Inner", {{GetParam().routine, "WriteGroupText"}});
  DriverFeature& b = numberFeature("B", "b%d");
  EXPECT_EQ(process(group("Outer", "<%s>", {&b, &inner, &b})), "<b0[routine]b0>");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kRoutineRan));
}

TEST_P(GroupTextTest, MissingMember_IsLoggedAndLeftOut) {
  class Holed : public DriverFeatureStaticGroup {
   public:
    CoreFeature* fetchFeatureInGroupByIndex(unsigned index) override {
      return index == 1 ? nullptr : DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(index);
    }
  };
  DriverFeature& a = numberFeature("A", "a%d");
  Holed g;
  g.setFeatureProperty(std::string(GetParam().command), std::string("<%s>"));
  for (int i = 0; i < 3; ++i) g.addFeatureToGroup(&a);
  EXPECT_EQ(process(g), "<a0a0>");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line(2, "Cannot get reference to feature 1")));
}

TEST_P(GroupTextTest, MemberThatCannotBeFormatted_IsLeftOut) {
  DriverFeature& a = numberFeature("A", "%s");
  DriverFeature& b = numberFeature("B", "b%d");
  EXPECT_EQ(process(group("G", "<%s>", {&a, &b})), "<b0>");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "createTicketPDLAttributes() - Cannot format value with command "
                                  "template \"%s\"")));
}

TEST_P(GroupTextTest, GroupTemplateThatDoesNotFit_IsLoggedAndEmpty) {
  EXPECT_EQ(process(group("G", "%d")), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(line(3, "Cannot format text with command template \"%d\"")));
}

TEST_P(GroupTextTest, MemberWithoutCommandOrRoutine_IsLoggedAndAddsNothing) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeature& silent = model_.feature("S", 2);
  EXPECT_EQ(process(group("G", "<%s>", {&a, &silent})), "<a0>");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(line(4, "Cannot get <> command for feature 1 - will look for callback")));
}

TEST_P(GroupTextTest, GroupThatContainsItself_EndsWithoutLogging) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& g = group("G", "<%s>", {&a});
  g.addFeatureToGroup(&g);
  EXPECT_EQ(process(g, false), "<a0>");
  DriverFeatureStaticGroup& x = group("X", "x(%s)");
  DriverFeatureStaticGroup& y = group("Y", "y(%s)", {&x});
  x.addFeatureToGroup(&y);
  EXPECT_EQ(process(x, false), "x(y())");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_P(GroupTextTest, SameGroupTwice_IsWrittenTwice) {
  DriverFeature& a = numberFeature("A", "a%d");
  DriverFeatureStaticGroup& shared = group("Shared", "s(%s)", {&a});
  DriverFeatureStaticGroup& left = group("Left", "l(%s)", {&shared});
  DriverFeatureStaticGroup& right = group("Right", "r(%s)", {&shared});
  EXPECT_EQ(process(group("Outer", "%s", {&left, &right, &shared})), "l(s(a0))r(s(a0))s(a0)");
}

TEST_P(GroupTextTest, GroupsNested64Deep_AreAllWritten) {
  DriverFeature& a = numberFeature("A", "a%d");
  CoreFeature* member = &a;
  for (int depth = 0; depth < 64; ++depth) {
    member = &group("G" + std::to_string(depth), "(%s)", {member});
  }
  EXPECT_EQ(process(*member), std::string(64, '(') + "a0" + std::string(64, ')'));
}

INSTANTIATE_TEST_SUITE_P(Languages, GroupTextTest, ::testing::ValuesIn(kLanguages),
                         [](const auto& instance) { return std::string(instance.param.word); });

class GroupTextDifferenceTest : public ::testing::Test {
 protected:
  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(GroupTextDifferenceTest, PostScriptMemberWithoutCommand_IsWrittenByItsOwnRoutine) {
  DriverFeature& a = model_.feature("A", 2, {{"AddPSCallbackRoutine", "WriteGroupText"}});
  DriverFeature& b = model_.feature("B", 2, {{"AddPSCallbackRoutine", "NoSuchRoutine"}});
  DriverFeatureStaticGroup& g = model_.group(
      "G", {{"PSCommand", "<%s>"}, {"AddPSCallbackRoutine", "NeverLookedAt"}}, {&a, &b, &a});
  std::string output;
  processPSStaticGroup(g, &masterSet(), output, true);
  EXPECT_EQ(output, "<[routine][routine]>");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(4,
                  "processPSStaticGroup() - Cannot get PS command for feature 0 - will look for "
                  "callback"),
          kRoutineRan,
          logLine(4,
                  "processPSStaticGroup() - Cannot get PS command for feature 1 - will look for "
                  "callback"),
          logLine(2, "processPSStaticGroup() - Cannot load PS Command callback: NoSuchRoutine"),
          logLine(4,
                  "processPSStaticGroup() - Cannot get PS command for feature 2 - will look for "
                  "callback"),
          kRoutineRan));
}

TEST_F(GroupTextDifferenceTest, PJLMemberWithoutCommand_RunsTheGroupsRoutineAndAddsNothing) {
  DriverFeature& a = model_.feature("A", 2, {{"AddPJLCallbackRoutine", "NeverLookedAt"}});
  DriverFeature& b = model_.feature("B", 2, {{"PJLCommand", "b%d"}});
  DriverFeatureStaticGroup& g = model_.group(
      "G", {{"PJLCommand", "<%s>"}, {"AddPJLCallbackRoutine", "WriteGroupText"}}, {&a, &b, &a});
  std::string output;
  processPJLStaticGroup(g, &masterSet(), output, true);
  EXPECT_EQ(output, "<b0>");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(4,
                  "processPJLStaticGroup() - Cannot get PJL command for feature 0 - will look for "
                  "callback"),
          kRoutineRan,
          logLine(4,
                  "processPJLStaticGroup() - Cannot get PJL command for feature 2 - will look for "
                  "callback"),
          kRoutineRan));
}

TEST_F(GroupTextDifferenceTest, PJLMemberWithoutCommand_UnknownGroupRoutine_IsLogged) {
  DriverFeature& a = model_.feature("A", 0);
  DriverFeatureStaticGroup& g =
      model_.group("G", {{"PJLCommand", "<%s>"}, {"AddPJLCallbackRoutine", "NoSuchRoutine"}}, {&a});
  std::string output;
  processPJLStaticGroup(g, &masterSet(), output, true);
  EXPECT_EQ(output, "<>");
  // The member's text is made all the same, which the last line shows.
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(4,
                  "processPJLStaticGroup() - Cannot get PJL command for feature 0 - will look for "
                  "callback"),
          logLine(2, "processPJLStaticGroup() - Cannot load PJL Command callback: NoSuchRoutine"),
          logLine(2, "createTicketPDLAttributes() - Feature has an invalid feature type")));
}

}  // namespace
}  // namespace driver_feature::testing

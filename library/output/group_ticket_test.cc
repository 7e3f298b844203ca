#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/group_commands.h"
#include "support/model_builder.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "VORNWriter.h"

extern "C" {

void WriteGroupNode(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  using driver_feature::testing::RecordingHost;
  const bool isMaster = set == &driver_feature::masterSet();
  RecordingHost::record(std::string("ticket routine, ") + (isMaster ? "master set" : "other set") +
                        (parent != nullptr ? ", under a group" : ", at top level"));
  std::string name = "routine";
  std::string empty;
  if (parent != nullptr) {
    writer->createChildCommandNode(parent, name, empty, empty);
  } else {
    writer->createCommandNode(name, empty, empty, true);
  }
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GroupTicketTest : public ::testing::Test {
 protected:
  GroupTicketTest() { writer_.initializeJobTicketDOM(nullptr, nullptr); }

  // The groups and commands of the ticket, without the lines around them.
  std::string process(CoreFeature& group, bool jobTicketAttribute = true, bool topLevel = true) {
    std::string name = "group";
    processVORNStaticGroup(group, &masterSet(), writer_, name, jobTicketAttribute, nullptr,
                           topLevel);
    std::string ticket;
    writer_.serializeTicket(ticket);
    return ticket;
  }

  static std::string ticket(const std::string& jobTicketSection,
                            const std::string& outputSection = "  <OutputAttributes/>\n") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<JobTicket argument1=\"\" "
           "argument2=\"\">\n" +
           jobTicketSection + outputSection + "</JobTicket>\n";
  }

  static std::string inJobTicket(const std::string& lines) {
    return ticket("  <JobTicketAttributes>\n" + lines + "  </JobTicketAttributes>\n");
  }

  DriverFeature& number(const std::string& name, Texts texts) {
    return model_.feature(name, 2, texts);
  }

  RecordingHost host_;
  ModelBuilder model_;
  VORNWriter writer_;
  const std::string empty_ = ticket("  <JobTicketAttributes/>\n");
};

TEST_F(GroupTicketTest, Members_InOrder_AreCommandsUnderTheGroup) {
  DriverFeature& b = number("B", {{"TESKJTAttributeName", "b"}, {"TESKAttributeSyntax", "int"}});
  DriverFeature& a = number("A", {{"TESKJTAttributeName", "a"}, {"TESKOAAttributeName", "x"}});
  DriverFeatureStaticGroup& g =
      model_.group("G", {{"TESKAttributeSyntax", "collection"}}, {&b, &a});
  EXPECT_EQ(process(g), inJobTicket("    <Group name=\"group\" syntax=\"collection\">\n"
                                    "      <Command name=\"b\" syntax=\"int\" value=\"0\"/>\n"
                                    "      <Command name=\"a\" syntax=\"\" value=\"0\"/>\n"
                                    "    </Group>\n"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(GroupTicketTest, OutputAttributes_UseTheMembersOtherName) {
  DriverFeature& a = number("A", {{"TESKJTAttributeName", "a"}, {"TESKOAAttributeName", "x"}});
  EXPECT_EQ(process(model_.group("G", {}, {&a}), false),
            ticket("  <JobTicketAttributes/>\n",
                   "  <OutputAttributes>\n"
                   "    <Group name=\"group\" syntax=\"\">\n"
                   "      <Command name=\"x\" syntax=\"\" value=\"0\"/>\n"
                   "    </Group>\n"
                   "  </OutputAttributes>\n"));
}

TEST_F(GroupTicketTest, NestedGroup_IsUnderItsParentAndInheritsTheKind) {
  DriverFeature& a = number("A", {{"TESKOAAttributeName", "x"}, {"TESKJTAttributeName", "a"}});
  DriverFeatureStaticGroup& inner = model_.group(
      "Inner", {{"TESKOAAttributeName", "inner"}, {"TESKAttributeSyntax", "set"}}, {&a});
  EXPECT_EQ(process(model_.group("Outer", {}, {&inner, &a}), false),
            ticket("  <JobTicketAttributes/>\n",
                   "  <OutputAttributes>\n"
                   "    <Group name=\"group\" syntax=\"\">\n"
                   "      <Group name=\"inner\" syntax=\"set\">\n"
                   "        <Command name=\"x\" syntax=\"\" value=\"0\"/>\n"
                   "      </Group>\n"
                   "      <Command name=\"x\" syntax=\"\" value=\"0\"/>\n"
                   "    </Group>\n"
                   "  </OutputAttributes>\n"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(GroupTicketTest, GroupInGroup_AtTopLevel_IsLeftToItsGroup) {
  DriverFeatureStaticGroup& inner = model_.group("Inner", {});
  inner.setFeatureProperty(std::string("FeatureInGroup"), true);
  // The flag is looked at before the type.
  inner.setFeatureProperty(std::string("FeatureType"), 7);
  EXPECT_EQ(process(inner), empty_);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, "processVORNStaticGroup() - Static group is in a group")));
}

TEST_F(GroupTicketTest, NotAStandardGroup_IsLogged) {
  const std::string line =
      logLine(4, "processVORNStaticGroup() - Static group is not a standard static group");
  DriverFeatureStaticGroup& shape = model_.group("G", {});
  shape.setFeatureProperty(std::string("FeatureType"), 7);
  EXPECT_EQ(process(shape), empty_);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line));
  ScriptedFeature feature(6);
  writer_.initializeJobTicketDOM(nullptr, nullptr);
  EXPECT_EQ(process(feature), empty_);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line));
}

TEST_F(GroupTicketTest, UnreadableSyntax_EndsTheGroup) {
  class Unreadable : public DriverFeatureStaticGroup {
   public:
    using DriverFeatureStaticGroup::getFeatureProperty;
    bool getFeatureProperty(const std::string&, std::string&) override { return false; }
  };
  Unreadable g;
  EXPECT_EQ(process(g), empty_);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, "createTicketAttributes() - Cannot get feature syntax")));
}

TEST_F(GroupTicketTest, RefusedGroupNode_EndsTheGroupWithoutLogging) {
  DriverFeature& a = number("A", {{"AddVORNCallbackRoutine", "WriteGroupNode"}});
  DriverFeatureStaticGroup& g = model_.group("G", {}, {&a});
  g.setFeatureProperty(std::string("TESKAttributeSyntax"), std::string("\x01"));
  EXPECT_EQ(process(g), empty_);
  // The one line is the writer's own.
  EXPECT_THAT(host_.takeEvents(), ElementsAre(::testing::HasSubstr("log 1 XMLParser: ")));
}

TEST_F(GroupTicketTest, MemberWithoutName_IsWrittenByItsRoutine) {
  DriverFeature& a = number("A", {{"AddVORNCallbackRoutine", "WriteGroupNode"}});
  EXPECT_EQ(process(model_.group("G", {}, {&a})),
            inJobTicket("    <Group name=\"group\" syntax=\"\">\n"
                        "      <Command name=\"routine\" syntax=\"\" value=\"\"/>\n"
                        "    </Group>\n"));
  EXPECT_THAT(host_.takeEvents(), ElementsAre("ticket routine, master set, under a group"));
}

TEST_F(GroupTicketTest, MemberWithoutName_UnknownRoutineOrNone_IsLogged) {
  DriverFeature& a = number("A", {{"TESKOAAttributeName", "other kind"}});
  DriverFeature& b = number("B", {{"AddVORNCallbackRoutine", "NoSuchRoutine"}});
  EXPECT_EQ(process(model_.group("G", {}, {&a, &b})),
            inJobTicket("    <Group name=\"group\" syntax=\"\"/>\n"));
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(2, "processVORNStaticGroup() - Cannot get feature attribute for feature 0"),
          logLine(2,
                  "processVORNStaticGroup() - Cannot load VORN Command callback: NoSuchRoutine")));
}

TEST_F(GroupTicketTest, MissingMember_IsLoggedAndLeftOut) {
  class Holed : public DriverFeatureStaticGroup {
   public:
    CoreFeature* fetchFeatureInGroupByIndex(unsigned index) override {
      return index == 0 ? nullptr : DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(index);
    }
  };
  DriverFeature& a = number("A", {{"TESKJTAttributeName", "a"}});
  Holed g;
  g.addFeatureToGroup(&a);
  g.addFeatureToGroup(&a);
  EXPECT_EQ(process(g), inJobTicket("    <Group name=\"group\" syntax=\"\">\n"
                                    "      <Command name=\"a\" syntax=\"\" value=\"0\"/>\n"
                                    "    </Group>\n"));
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(2, "processVORNStaticGroup() - Cannot get reference to feature 0")));
}

TEST_F(GroupTicketTest, MemberThatGivesNoNode_IsLeftOut) {
  DriverFeature& title = model_.feature("Title", 3, {{"TESKJTAttributeName", "title"}});
  EXPECT_EQ(process(model_.group("G", {}, {&title})),
            inJobTicket("    <Group name=\"group\" syntax=\"\"/>\n"));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, "createTicketNodeAttributes() - Empty text value")));
}

TEST_F(GroupTicketTest, MemberOfUnreadableName_TakesTheNameBeforeIt) {
  ScriptedFeature member(2);
  member.texts["TESKAttributeSyntax"] = "";
  member.numbers["CurrentIntValue"] = 5;
  EXPECT_EQ(process(model_.group("G", {}, {&member})),
            inJobTicket("    <Group name=\"group\" syntax=\"\">\n"
                        "      <Command name=\"group\" syntax=\"\" value=\"5\"/>\n"
                        "    </Group>\n"));
}

TEST_F(GroupTicketTest, GroupThatContainsItself_EndsWithoutLogging) {
  DriverFeatureStaticGroup& g = model_.group("G", {{"TESKJTAttributeName", "self"}});
  g.addFeatureToGroup(&g);
  EXPECT_EQ(process(g, true, false), inJobTicket("    <Group name=\"group\" syntax=\"\"/>\n"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(GroupTicketTest, SameGroupTwice_IsWrittenTwice) {
  DriverFeatureStaticGroup& shared = model_.group("S", {{"TESKJTAttributeName", "shared"}});
  EXPECT_EQ(process(model_.group("G", {}, {&shared, &shared})),
            inJobTicket("    <Group name=\"group\" syntax=\"\">\n"
                        "      <Group name=\"shared\" syntax=\"\"/>\n"
                        "      <Group name=\"shared\" syntax=\"\"/>\n"
                        "    </Group>\n"));
}

}  // namespace
}  // namespace driver_feature::testing

// The set written as a job ticket.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

#include "VORNWriter.h"

extern "C" {

void WriteTicketNode(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent) {
  using driver_feature::testing::RecordingHost;
  const bool isMaster = set == &driver_feature::masterSet();
  RecordingHost::record(std::string("ticket routine, ") + (isMaster ? "master set" : "other set") +
                        (parent != nullptr ? ", under a group" : ", at top level"));
  std::string name = "routine";
  std::string empty;
  if (parent == nullptr) writer->createCommandNode(name, empty, empty, true);
}

}  // extern "C"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TicketSerializationTest : public ::testing::Test {
 protected:
  static std::string serialize(bool includeInstOpt = false, DriverFeatureSet& set = masterSet()) {
    std::string output = "left over";
    set.serialize(output, 2, includeInstOpt, "one", nullptr);
    return output;
  }

  static std::string ticket(const std::string& jobTicketLines, const std::string& outputLines) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<JobTicket argument1=\"one\" argument2=\"\">\n" +
           section("JobTicketAttributes", jobTicketLines) +
           section("OutputAttributes", outputLines) + "</JobTicket>\n";
  }

  static std::string section(const std::string& name, const std::string& lines) {
    if (lines.empty()) return "  <" + name + "/>\n";
    return "  <" + name + ">\n" + lines + "  </" + name + ">\n";
  }

  static std::string command(const std::string& name) {
    return "    <Command name=\"" + name + "\" syntax=\"\" value=\"0\"/>\n";
  }

  static std::string group(const std::string& name) {
    return "    <Group name=\"" + name + "\" syntax=\"\"/>\n";
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(TicketSerializationTest, EmptySet_GivesAnEmptyTicket) {
  EXPECT_EQ(serialize(), ticket("", ""));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketSerializationTest, Features_AreWrittenInTheOrderOfTheirNames) {
  model_.feature("B", 2, {{"TESKJTAttributeName", "b"}});
  model_.feature("A", 2, {{"TESKJTAttributeName", "a"}});
  EXPECT_EQ(serialize(), ticket(command("a") + command("b"), ""));
}

TEST_F(TicketSerializationTest, SyntaxAndValue_AreTheFeatures) {
  DriverFeature& title = model_.feature(
      "Title", 3, {{"TESKJTAttributeName", "title"}, {"TESKAttributeSyntax", "text"}});
  title.setFeatureProperty(std::string("CurrentTextValue"), std::string("A & \"B\""));
  EXPECT_EQ(serialize(), ticket("    <Command name=\"title\" syntax=\"text\" value=\"A &amp; "
                                "&quot;B&quot;\"/>\n",
                                ""));
}

struct NameRow {
  const char* what;
  Texts names;
  bool includeInstOpt;
  std::string jobTicket;
  std::string output;
};

TEST_F(TicketSerializationTest, NodeName_IsTheFirstThatCounts) {
  const NameRow rows[] = {
      {"all four, the first",
       {{"TESKJTAttributeName", "jt"},
        {"TESKOAAttributeName", "oa"},
        {"InstOptAttributeName", "io"},
        {"NonVORNAttributeName", "nv"}},
       true,
       command("jt"),
       ""},
      {"two, the first",
       {{"TESKJTAttributeName", "jt"}, {"TESKOAAttributeName", "oa"}},
       false,
       command("jt"),
       ""},
      {"the second",
       {{"TESKOAAttributeName", "oa"}, {"InstOptAttributeName", "io"}},
       true,
       "",
       command("oa")},
      {"the second with the third not asked for",
       {{"TESKOAAttributeName", "oa"}, {"NonVORNAttributeName", "nv"}},
       false,
       "",
       command("oa")},
      {"the third",
       {{"InstOptAttributeName", "io"}, {"NonVORNAttributeName", "nv"}},
       true,
       command("io"),
       ""},
      {"the third not asked for",
       {{"InstOptAttributeName", "io"}, {"NonVORNAttributeName", "nv"}},
       false,
       command("nv"),
       ""},
      {"the third alone, not asked for", {{"InstOptAttributeName", "io"}}, false, "", ""},
      {"the fourth", {{"NonVORNAttributeName", "nv"}}, false, command("nv"), ""},
      {"the fourth with the third asked for",
       {{"NonVORNAttributeName", "nv"}},
       true,
       command("nv"),
       ""},
      {"none", {}, true, "", ""},
  };
  for (const NameRow& row : rows) {
    SCOPED_TRACE(row.what);
    model_.feature("F", 2, row.names);  // In place of the one before it.
    EXPECT_EQ(serialize(row.includeInstOpt), ticket(row.jobTicket, row.output));
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
  }
}

TEST_F(TicketSerializationTest, NameFoundAndValueRefused_DoesNotTryTheNextName) {
  model_.feature("F", 0,
                 {{"TESKJTAttributeName", "jt"},
                  {"TESKOAAttributeName", "oa"},
                  {"AddVORNCallbackRoutine", "WriteTicketNode"}});
  EXPECT_EQ(serialize(), ticket("", ""));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "createTicketNodeAttributes() - Feature has an invalid feature "
                                  "type")));
}

TEST_F(TicketSerializationTest, FeatureWithoutName_IsWrittenByItsRoutine) {
  model_.feature("A", 0, {{"AddVORNCallbackRoutine", "WriteTicketNode"}});
  EXPECT_EQ(serialize(), ticket("    <Command name=\"routine\" syntax=\"\" value=\"\"/>\n", ""));
  EXPECT_THAT(host_.takeEvents(), ElementsAre("ticket routine, master set, at top level"));
}

TEST_F(TicketSerializationTest, Routine_Unknown_IsLogged) {
  model_.feature("A", 0, {{"AddVORNCallbackRoutine", "NoSuchRoutine"}});
  model_.group("G", {{"AddVORNCallbackRoutine", "NoSuchGroupRoutine"}});
  EXPECT_EQ(serialize(), ticket("", ""));
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(2, "serialize() - Cannot load VORN Command callback: NoSuchRoutine"),
          logLine(2, "serialize() - Cannot load VORN Command callback: NoSuchGroupRoutine")));
}

TEST_F(TicketSerializationTest, FeatureInGroup_IsPassedOverWithoutLogging) {
  DriverFeature& member = model_.feature("F", 2, {{"TESKJTAttributeName", "f"}});
  model_.group("G", {{"TESKJTAttributeName", "g"}}, {&member});
  EXPECT_EQ(serialize(), ticket("    <Group name=\"g\" syntax=\"\">\n"
                                "      <Command name=\"f\" syntax=\"\" value=\"0\"/>\n"
                                "    </Group>\n",
                                ""));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketSerializationTest, Groups_AreWrittenFromTheLastToTheFirst) {
  model_.feature("F", 2, {{"TESKJTAttributeName", "feature"}});
  for (const char* name : {"first", "second", "third"}) {
    model_.group(name, {{"TESKJTAttributeName", name}, {"TESKOAAttributeName", "no"}});
  }
  EXPECT_EQ(serialize(),
            ticket(command("feature") + group("third") + group("second") + group("first"), ""));
}

TEST_F(TicketSerializationTest, GroupWithTheSecondName_IsAnOutputAttribute) {
  model_.group("G", {{"TESKOAAttributeName", "g"}});
  EXPECT_EQ(serialize(), ticket("", group("g")));
}

TEST_F(TicketSerializationTest, GroupWithoutNames_IsWrittenByItsRoutine) {
  model_.group("G", {{"AddVORNCallbackRoutine", "WriteTicketNode"}});
  EXPECT_EQ(serialize(), ticket("    <Command name=\"routine\" syntax=\"\" value=\"\"/>\n", ""));
  EXPECT_THAT(host_.takeEvents(), ElementsAre("ticket routine, master set, at top level"));
}

TEST_F(TicketSerializationTest, GroupWithoutAnything_IsLoggedWithTheNumberOfFeatures) {
  for (const char* name : {"A", "B", "C"}) model_.feature(name, 2);
  model_.group("G", {{"InstOptAttributeName", "io"}});
  model_.group("H", {{"NonVORNAttributeName", "nv"}});
  EXPECT_EQ(serialize(true), ticket("", ""));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, "serialize() - StaticGroup 3 has no VORN attributes"),
                          logLine(4, "serialize() - StaticGroup 3 has no VORN attributes")));
}

TEST_F(TicketSerializationTest, NestedGroupWithRoutineOnly_HasItCalledTwice) {
  DriverFeatureStaticGroup& inner =
      model_.group("Inner", {{"AddVORNCallbackRoutine", "WriteTicketNode"}});
  model_.group("Outer", {{"TESKJTAttributeName", "outer"}}, {&inner});
  serialize();
  EXPECT_THAT(host_.takeEvents(), ElementsAre("ticket routine, master set, under a group",
                                              "ticket routine, master set, at top level"));
}

TEST_F(TicketSerializationTest, NestedGroupWithName_IsWrittenThroughItsGroupOnly) {
  DriverFeatureStaticGroup& inner = model_.group("Inner", {{"TESKJTAttributeName", "inner"}});
  model_.group("Outer", {{"TESKJTAttributeName", "outer"}}, {&inner});
  EXPECT_EQ(serialize(), ticket("    <Group name=\"outer\" syntax=\"\">\n"
                                "      <Group name=\"inner\" syntax=\"\"/>\n"
                                "    </Group>\n",
                                ""));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, "processVORNStaticGroup() - Static group is in a group")));
}

TEST_F(TicketSerializationTest, MissingFeature_IsLoggedAndLeftOut) {
  class SetWithoutFirst : public DriverFeatureSet {
   public:
    DriverFeature* fetchFeatureByIndex(int index) override {
      return index == 0 ? nullptr : DriverFeatureSet::fetchFeatureByIndex(index);
    }
  };
  SetWithoutFirst set;
  set.addFeatureToFeatureList("A", &model_.feature("A", 2, {{"TESKJTAttributeName", "a"}}));
  set.addFeatureToFeatureList("B", &model_.feature("B", 2, {{"TESKJTAttributeName", "b"}}));
  EXPECT_EQ(serialize(false, set), ticket(command("b"), ""));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, "serialize() - Cannot get reference to feature 0")));
}

}  // namespace
}  // namespace driver_feature::testing

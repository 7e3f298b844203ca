#include "output/ticket_attributes.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TicketAttributesTest : public ::testing::Test {
 protected:
  // The node's texts as "syntax|value", or "none".
  static std::string node(CoreFeature& feature) {
    std::string syntax = "s";
    std::string value = "v";
    return createTicketNodeAttributes(feature, syntax, value) ? syntax + '|' + value : "none";
  }

  static std::string text(CoreFeature& feature, const std::string& commandTemplate,
                          bool forPostScript) {
    std::string output = "left over";
    createTicketPDLAttributes(feature, commandTemplate, output, forPostScript);
    return output;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(TicketAttributesTest, Node_ListFeature_HasTheOptionsTicketCommand) {
  DriverFeature& size = model_.feature("Size", 1, {{"TESKAttributeSyntax", "keyword"}});
  model_.option(size, "A4", {{"TESKCommand", "iso_a4"}});
  model_.option(size, "Letter", {{"TESKCommand", "na_letter"}});
  size.setFeatureProperty(std::string("CurrentIntValue"), 1);
  EXPECT_EQ(node(size), "keyword|na_letter");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketAttributesTest, Node_ListFeatureWithoutCommand_IsSkippedButHasText) {
  DriverFeature& size = model_.feature("Size", 1);
  model_.option(size, "A4", {{"PSCommand", "a4"}});
  EXPECT_EQ(node(size), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "createTicketNodeAttributes() - Empty feature option command - "
                                  "skipping")));
  EXPECT_EQ(text(size, "<%s>", true), "<a4>");
  EXPECT_EQ(text(size, "<%s>", false), "<>");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketAttributesTest, Node_ListFeatureWithoutOption_IsRefused) {
  ScriptedFeature feature(1);
  feature.texts["TESKAttributeSyntax"] = "keyword";
  EXPECT_EQ(node(feature), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "createTicketNodeAttributes() - Cannot get current feature "
                                  "option")));
}

TEST_F(TicketAttributesTest, Node_UnreadableOption_IsRefused) {
  UnreadableOption option;
  ScriptedFeature feature(1);
  feature.texts["TESKAttributeSyntax"] = "keyword";
  feature.currentOption = &option;
  EXPECT_EQ(node(feature), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "createTicketNodeAttributes() - Cannot get current feature "
                                  "option command")));
}

TEST_F(TicketAttributesTest, Node_Numbers_AreFormatted) {
  DriverFeature& copies = model_.feature("Copies", 2, {{"TESKAttributeSyntax", "integer"}});
  copies.setFeatureProperty(std::string("CurrentIntValue"), -3);
  EXPECT_EQ(node(copies), "integer|-3");
  DriverFeature& gamma = model_.feature("Gamma", 4, {{"TESKAttributeSyntax", "real"}});
  gamma.setFeatureProperty(std::string("CurrentFloatValue"), 0.1F);
  EXPECT_EQ(node(gamma), "real|0.100000");
  gamma.setFeatureProperty(std::string("CurrentFloatValue"), 2.5F);
  EXPECT_EQ(node(gamma), "real|2.500000");
}

TEST_F(TicketAttributesTest, Node_Text_IsTheValue) {
  DriverFeature& title = model_.feature("Title", 3, {{"TESKAttributeSyntax", "text"}});
  title.setFeatureProperty(std::string("CurrentTextValue"), std::string("Report"));
  EXPECT_EQ(node(title), "text|Report");
}

TEST_F(TicketAttributesTest, Node_EmptyText_IsRefusedButHasCommandText) {
  DriverFeature& title = model_.feature("Title", 3);
  EXPECT_EQ(node(title), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, "createTicketNodeAttributes() - Empty text value")));
  EXPECT_EQ(text(title, "(%s)", true), "()");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

struct RefusalRow {
  int type;
  int level;
  const char* nodeText;
  const char* commandText;
};

TEST_F(TicketAttributesTest, NodeAndText_UnreadableValue_AreRefused) {
  const RefusalRow rows[] = {
      {2, 2, "createTicketNodeAttributes() - Cannot get feature int value",
       "createTicketPDLAttributes() - Cannot get feature int value"},
      {3, 2, "createTicketNodeAttributes() - Cannot get feature text value",
       "createTicketPDLAttributes() - Cannot get feature text value"},
      {4, 2, "createTicketNodeAttributes() - Cannot get feature float value",
       "createTicketPDLAttributes() - Cannot get feature float value"},
      {0, 2, "createTicketNodeAttributes() - Feature has an invalid feature type",
       "createTicketPDLAttributes() - Feature has an invalid feature type"},
      {5, 2, "createTicketNodeAttributes() - Feature has an invalid feature type",
       "createTicketPDLAttributes() - Feature has an invalid feature type"},
      {8, 2, "createTicketNodeAttributes() - Feature has an invalid feature type",
       "createTicketPDLAttributes() - Feature has an invalid feature type"},
  };
  for (const RefusalRow& row : rows) {
    SCOPED_TRACE(row.type);
    ScriptedFeature feature(row.type);
    feature.texts["TESKAttributeSyntax"] = "syntax";
    EXPECT_EQ(node(feature), "none");
    EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(row.level, row.nodeText)));
    for (const bool forPostScript : {true, false}) {
      EXPECT_EQ(text(feature, "x", forPostScript), "");
      EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(row.level, row.commandText)));
    }
  }
}

TEST_F(TicketAttributesTest, NodeAndText_StaticGroup_AreOfAnInvalidType) {
  DriverFeatureStaticGroup group;
  EXPECT_EQ(node(group), "none");
  EXPECT_EQ(text(group, "x", true), "");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(2, "createTicketNodeAttributes() - Feature has an invalid feature type"),
                  logLine(2, "createTicketPDLAttributes() - Feature has an invalid feature type")));
}

TEST_F(TicketAttributesTest, Node_UnreadableSyntax_IsRefusedBeforeTheValueIsRead) {
  ScriptedFeature feature(2);
  feature.numbers["CurrentIntValue"] = 1;
  EXPECT_EQ(node(feature), "none");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, "createTicketNodeAttributes() - Cannot get feature syntax")));
}

TEST_F(TicketAttributesTest, Text_EachType_GoesIntoTheTemplate) {
  DriverFeature& size = model_.feature("Size", 1);
  model_.option(size, "A4", {{"PSCommand", "100%d"}, {"PJLCommand", "PAPER=A4"}});
  EXPECT_EQ(text(size, "{%s}", true), "{100%d}");
  EXPECT_EQ(text(size, "@PJL SET %s\r\n", false), "@PJL SET PAPER=A4\r\n");
  DriverFeature& copies = model_.feature("Copies", 2);
  copies.setFeatureProperty(std::string("CurrentIntValue"), -3);
  EXPECT_EQ(text(copies, "/NumCopies %d", true), "/NumCopies -3");
  DriverFeature& title = model_.feature("Title", 3);
  title.setFeatureProperty(std::string("CurrentTextValue"), std::string("Report"));
  EXPECT_EQ(text(title, "(%s)", true), "(Report)");
  DriverFeature& gamma = model_.feature("Gamma", 4);
  gamma.setFeatureProperty(std::string("CurrentFloatValue"), 2.5F);
  EXPECT_EQ(text(gamma, "%.2f gamma", false), "2.50 gamma");
  EXPECT_EQ(text(gamma, "no conversion", false), "no conversion");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketAttributesTest, Text_ListFeatureWithoutOption_IsRefused) {
  ScriptedFeature feature(1);
  EXPECT_EQ(text(feature, "%s", true), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "createTicketPDLAttributes() - Cannot get current feature "
                                  "option")));
}

TEST_F(TicketAttributesTest, Text_UnreadableOption_IsRefusedPerLanguage) {
  UnreadableOption option;
  ScriptedFeature feature(1);
  feature.currentOption = &option;
  EXPECT_EQ(text(feature, "%s", true), "");
  EXPECT_EQ(text(feature, "%s", false), "");
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(
          logLine(3, "createTicketPDLAttributes() - Cannot get current feature option PS command"),
          logLine(3,
                  "createTicketPDLAttributes() - Cannot get current feature option PJL command")));
}

TEST_F(TicketAttributesTest, Text_TemplateThatDoesNotFit_IsRefusedWithItsText) {
  DriverFeature& copies = model_.feature("Copies", 2);
  EXPECT_EQ(text(copies, "%s%n", true), "");
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "createTicketPDLAttributes() - Cannot format value with command "
                                  "template \"%s%n\"")));
}

TEST_F(TicketAttributesTest, GroupSyntax_Readable_IsReturned) {
  DriverFeatureStaticGroup group;
  group.setFeatureProperty(std::string("TESKAttributeSyntax"), std::string("collection"));
  std::string syntax;
  EXPECT_TRUE(createTicketAttributes(group, syntax));
  EXPECT_EQ(syntax, "collection");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(TicketAttributesTest, GroupSyntax_Unreadable_IsRefused) {
  ScriptedFeature feature(6);
  std::string syntax = "kept";
  EXPECT_FALSE(createTicketAttributes(feature, syntax));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3, "createTicketAttributes() - Cannot get feature syntax")));
}

}  // namespace
}  // namespace driver_feature::testing

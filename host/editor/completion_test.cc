#include "host/editor/completion.h"

#include <gtest/gtest.h>

#include "support/cursor.h"

namespace driver_feature::editor {

namespace {

std::vector<Completion> offeredIn(const std::string& inside) {
  const Cursor cursor("<FeatureDescription>" + inside + "</FeatureDescription>");
  return completionsAt(Markup(cursor.text), cursor.offset, {"OfficeUpdate", "TrayChanged"});
}

// The labels in their order.
std::string labelsIn(const std::string& inside) {
  std::string labels;
  for (const Completion& item : offeredIn(inside)) {
    labels += (labels.empty() ? "" : " ") + item.label;
  }
  return labels;
}

// The text after the one of that label is taken, with the cursor in it.
std::string taken(const std::string& inside, const std::string& label) {
  Cursor cursor("<FeatureDescription>" + inside + "</FeatureDescription>");
  for (const Completion& item : offeredIn(inside)) {
    if (item.label != label) continue;
    std::string text = item.text;
    text.insert(item.cursor, "|");
    cursor.text.replace(item.replaced.begin, item.replaced.end - item.replaced.begin, text);
    return cursor.text.substr(20, cursor.text.size() - 41);
  }
  return "not offered";
}

TEST(Completion, CompletionsAt_Content_AreTheElementsThatFit) {
  EXPECT_EQ(labelsIn("|"), "BaseFeatureInfo Feature FeatureStaticGroup FeatureDynamicGroup");
  EXPECT_EQ(labelsIn("<FeatureStaticGroup>|</FeatureStaticGroup>"), "Feature FeatureStaticGroup");
  EXPECT_EQ(labelsIn("<FeatureDynamicGroup><|</FeatureDynamicGroup>"), "FeatureStaticGroup");
  EXPECT_EQ(labelsIn("<Feature FeatureType='MultiSelect'>|</Feature>"), "Option");
  EXPECT_EQ(labelsIn("<Feature FeatureType='IntEntry'>|</Feature>"), "");
  EXPECT_EQ(taken("|", "Feature"), "<Feature|");
  EXPECT_EQ(taken("<Fe|", "Feature"), "<Feature|");
}

TEST(Completion, CompletionsAt_TopLevel_IsADescription) {
  const Cursor cursor("<Driver>\n  <|\n</Driver>");
  const auto offered = completionsAt(Markup(cursor.text), cursor.offset, {});
  ASSERT_FALSE(offered.empty());
  EXPECT_EQ(offered.front().label, "FeatureDescription");
}

TEST(Completion, CompletionsAt_EndTag_IsThatOfTheOpenElement) {
  EXPECT_EQ(taken("<FeatureStaticGroup></|", "FeatureStaticGroup"),
            "<FeatureStaticGroup></FeatureStaticGroup>|");
  EXPECT_EQ(taken("<FeatureStaticGroup></F|>", "FeatureStaticGroup"),
            "<FeatureStaticGroup></FeatureStaticGroup|>");
}

TEST(Completion, CompletionsAt_StartTag_AreTheAttributesThatAreMissing) {
  EXPECT_EQ(labelsIn("<BaseFeatureInfo |/>"), "DefaultCallbackHandler LoadVORNCallbackHandler");
  EXPECT_EQ(labelsIn("<BaseFeatureInfo DefaultCallbackHandler='' |/>"), "LoadVORNCallbackHandler");
  EXPECT_EQ(labelsIn("<Option |/>"), "");
  EXPECT_EQ(labelsIn("<Feature |/>").substr(0, 28), "Name FeatureType Sensitivity");
  EXPECT_EQ(taken("<BaseFeatureInfo D|/>", "DefaultCallbackHandler"),
            "<BaseFeatureInfo DefaultCallbackHandler=\"|\"/>");
  EXPECT_EQ(taken("<BaseFeatureInfo D|='x'/>", "DefaultCallbackHandler"),
            "<BaseFeatureInfo DefaultCallbackHandler|='x'/>");
}

TEST(Completion, CompletionsAt_StartTagOfAType_AreTheAttributesOfTheType) {
  const std::string labels = labelsIn("<Feature FeatureType='TextEntry' Name='a' |/>");
  EXPECT_NE(labels.find("MaxTextLength"), std::string::npos) << labels;
  EXPECT_EQ(labels.find("IntMinValue"), std::string::npos) << labels;
  EXPECT_EQ(labels.find("FeatureType"), std::string::npos) << labels;
}

TEST(Completion, CompletionsAt_Value_AreTheWordsOfTheGrammar) {
  EXPECT_EQ(labelsIn("<Feature FeatureType='|'/>"),
            "UIOnly MVCList MultiSelect IntEntry TextEntry FloatEntry");
  EXPECT_EQ(labelsIn("<Feature Visibility='t|'/>"), "true false 1 0");
  EXPECT_EQ(labelsIn("<Feature Name='|'/>"), "");
  EXPECT_EQ(taken("<Feature FeatureType='In|'/>", "IntEntry"),
            "<Feature FeatureType='IntEntry|'/>");
}

TEST(Completion, CompletionsAt_DefaultOfAList_AreItsOptions) {
  EXPECT_EQ(labelsIn("<Feature FeatureType='MultiSelect' DefaultValue='|'>"
                     "<Option Name='On'/><Option/><Option Name='A&amp;B'/></Feature>"),
            "On A&B");
  EXPECT_EQ(taken("<Feature FeatureType='MultiSelect' DefaultValue='|'><Option Name='A&amp;B'/>"
                  "</Feature>",
                  "A&B"),
            "<Feature FeatureType='MultiSelect' DefaultValue='A&amp;B|'>"
            "<Option Name='A&amp;B'/></Feature>");
  EXPECT_EQ(
      labelsIn("<Feature FeatureType='IntEntry' DefaultValue='|'><Option Name='On'/></Feature>"),
      "");
}

TEST(Completion, CompletionsAt_FeatureOfARule_AreTheFeatures) {
  const Cursor cursor(
      "<Driver><FeatureDescription><Feature Name='Tray'/><FeatureStaticGroup Name='G'>"
      "<Feature Name='Jog'/></FeatureStaticGroup></FeatureDescription>"
      "<FeatureRules><Hardware Feature='|'/></FeatureRules></Driver>");
  const auto offered = completionsAt(Markup(cursor.text), cursor.offset, {});
  ASSERT_EQ(offered.size(), 2U);
  EXPECT_EQ(offered[0].label, "Tray");
  EXPECT_EQ(offered[1].label, "Jog");
}

TEST(Completion, CompletionsAt_NameOfARoutine_AreTheRoutines) {
  EXPECT_EQ(labelsIn("<Feature AddCallbackRoutine=\"|\"/>"), "OfficeUpdate TrayChanged");
  EXPECT_EQ(labelsIn("<FeatureDynamicGroup SortFunctionName=\"|\"/>"), "OfficeUpdate TrayChanged");
  EXPECT_EQ(labelsIn("<Feature SNMPOID=\"|\"/>"), "");
}

TEST(Completion, CompletionsAt_Comment_AreNone) {
  EXPECT_EQ(labelsIn("<!-- | -->"), "");
}

}  // namespace

}  // namespace driver_feature::editor

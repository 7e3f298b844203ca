#include "host/editor/hover.h"

#include <gtest/gtest.h>

#include "support/cursor.h"

namespace driver_feature::editor {

namespace {

// The text, and in front of it what it is about; empty for none.
std::string hoverIn(const std::string& inside) {
  const Cursor cursor("<FeatureDescription>" + inside + "</FeatureDescription>");
  const auto hover = hoverAt(Markup(cursor.text), cursor.offset);
  if (!hover) return "";
  return cursor.text.substr(hover->range.begin, hover->range.end - hover->range.begin) + " => " +
         hover->text;
}

TEST(Hover, HoverAt_Element_IsItsSentence) {
  EXPECT_EQ(hoverIn("<Fea|ture/>"), "Feature => **Feature**\n\nOne setting of the printer.");
  EXPECT_EQ(hoverIn("<FeatureStaticGroup></FeatureSt|aticGroup>"),
            "FeatureStaticGroup => **FeatureStaticGroup**\n\n"
            "Features and groups that are written together.");
}

TEST(Hover, HoverAt_Attribute_IsItsSentenceAndTheFormOfValues) {
  EXPECT_EQ(hoverIn("<Feature Sensi|tivity='true'/>"),
            "Sensitivity => **Sensitivity**\n\n"
            "Whether the user can set it; calls the update callback.\n\n"
            "One of `true`, `false`, `1` and `0`.");
  EXPECT_EQ(hoverIn("<BaseFeatureInfo DefaultCallbackHandler='x|y'/>"),
            "xy => **DefaultCallbackHandler**\n\n"
            "The update callback: the library calls it after a change of a current value or a "
            "flag.\n\nThe name of a C function.\n\nIt must be given.");
}

TEST(Hover, HoverAt_AttributeOfSeveralTypes_IsThatOfTheElementsType) {
  EXPECT_EQ(hoverIn("<Feature Default|Value='1' FeatureType='IntEntry'/>"),
            "DefaultValue => **DefaultValue**\n\nDefault and current value.\n\n"
            "A decimal number of 32 bits: `-5`, `600`.");
  EXPECT_EQ(hoverIn("<Feature Default|Value='1' FeatureType='TextEntry'/>"),
            "DefaultValue => **DefaultValue**\n\nDefault and current text.");
}

TEST(Hover, HoverAt_AttributeOfAnotherType_SaysWhereItBelongs) {
  EXPECT_EQ(hoverIn("<Feature FeatureType='IntEntry' Max|TextLength='1'/>"),
            "MaxTextLength => **MaxTextLength**\n\n"
            "The maximum number of characters, stored for the host.\n\n"
            "A decimal number of 32 bits: `-5`, `600`.\n\n"
            "It belongs to elements with `FeatureType=\"TextEntry\"`.");
}

TEST(Hover, HoverAt_TypeOfAFeature_IsWhatItHolds) {
  EXPECT_EQ(hoverIn("<Feature FeatureType='Multi|Select'/>"),
            "MultiSelect => **MultiSelect**\n\nOne of its options.");
  EXPECT_EQ(hoverIn("<Feature FeatureType='Some|thing'/>"),
            "Something => **FeatureType**\n\nThe type: what the feature holds.\n\n"
            "It must be given.");
}

TEST(Hover, HoverAt_WhatIsNotKnown_IsNothing) {
  EXPECT_EQ(hoverIn("<Fe|ture/>"), "");
  EXPECT_EQ(hoverIn("<Feature Col|our='red'/>"), "");
  EXPECT_EQ(hoverIn("<Feature | Name='x'/>"), "");
  EXPECT_EQ(hoverIn(" | "), "");
  EXPECT_EQ(hoverIn("<!-- <Fea|ture/> -->"), "");
}

}  // namespace

}  // namespace driver_feature::editor

#include "host/editor/outline.h"

#include <gtest/gtest.h>

#include "host/editor/definition.h"
#include "support/cursor.h"

namespace driver_feature::editor {

namespace {

constexpr const char* kText =
    "<Driver><FeatureDescription>"
    "<Feature FeatureType='MultiSelect' Name='Duplex'><Option Name='Off'/><Option/></Feature>"
    "<Note><Feature Name='x'/></Note>"
    "<FeatureDynamicGroup Name='Pages'><FeatureStaticGroup Name='Page'><Feature Name=''/>"
    "</FeatureStaticGroup></FeatureDynamicGroup>"
    "</FeatureDescription><Feature Name='y'/></Driver>";

void addLines(const std::string& text, const std::vector<Symbol>& symbols,
              const std::string& indent, std::string& lines) {
  for (const Symbol& symbol : symbols) {
    lines += indent + symbol.tag + " " + symbol.name;
    if (!symbol.detail.empty()) lines += " (" + symbol.detail + ")";
    lines += " at " + text.substr(symbol.chosen.begin, symbol.chosen.end - symbol.chosen.begin);
    lines += "\n";
    addLines(text, symbol.children, indent + " ", lines);
  }
}

TEST(Outline, OutlineOf_Description_IsItsTree) {
  std::string lines;
  addLines(kText, outlineOf(Markup(kText)), "", lines);
  EXPECT_EQ(lines,
            "FeatureDescription FeatureDescription at FeatureDescription\n"
            " Feature Duplex (MultiSelect) at Duplex\n"
            "  Option Off at Off\n"
            "  Option Option at Option\n"
            " FeatureDynamicGroup Pages at Pages\n"
            "  FeatureStaticGroup Page at Page\n"
            "   Feature Feature at Feature\n");
}

TEST(Outline, OutlineOf_EachElement_IsWholeAroundItsName) {
  const std::string text =
      "<FeatureDescription>\n<Feature Name='a'></Feature></FeatureDescription>";
  const auto symbols = outlineOf(Markup(text));
  ASSERT_EQ(symbols.size(), 1U);
  EXPECT_EQ(symbols[0].whole, (Range{0, text.size()}));
  ASSERT_EQ(symbols[0].children.size(), 1U);
  EXPECT_EQ(symbols[0].children[0].whole, (Range{21, 49}));
  EXPECT_EQ(symbols[0].children[0].chosen, (Range{36, 37}));
}

// The element from its beginning to the end of the name.
std::string definitionIn(const std::string& inside) {
  const Cursor cursor("<FeatureDescription>" + inside + "</FeatureDescription>");
  const auto found = definitionAt(Markup(cursor.text), cursor.offset);
  if (!found) return "";
  return cursor.text.substr(found->whole.begin, found->chosen.end - found->whole.begin);
}

TEST(Definition, DefinitionAt_DefaultOfAList_IsItsOption) {
  EXPECT_EQ(definitionIn("<Feature FeatureType='MultiSelect' DefaultValue='O|n'>"
                         "<Option Name='Off'/><Option PSCommand='' Name='On'/></Feature>"),
            "<Option PSCommand='' Name='On");
  EXPECT_EQ(definitionIn("<Feature FeatureType='MultiSelect' DefaultValue='N|o'>"
                         "<Option Name='Off'/></Feature>"),
            "");
  EXPECT_EQ(definitionIn("<Feature FeatureType='TextEntry' DefaultValue='O|n'>"
                         "<Option Name='On'/></Feature>"),
            "");
}

TEST(Definition, DefinitionAt_MemberOfAGroup_IsTheFeatureThatCounts) {
  const std::string later = "<Feature SNMPOID='1' Name='Jog'/>";
  EXPECT_EQ(definitionIn("<FeatureStaticGroup><Feature Name='J|og'/></FeatureStaticGroup>" + later),
            "<Feature SNMPOID='1' Name='Jog");
  EXPECT_EQ(definitionIn("<FeatureStaticGroup><Fea|ture Name='Jog'/></FeatureStaticGroup>" + later),
            "<Feature SNMPOID='1' Name='Jog");
  EXPECT_EQ(
      definitionIn("<FeatureStaticGroup><Feature Name='St|ack'/></FeatureStaticGroup>" + later),
      "<Feature Name='Stack");
}

TEST(Definition, DefinitionAt_FeatureOfARule_IsTheFeature) {
  const Cursor cursor(
      "<Driver><FeatureDescription><Feature Name='Tray'/></FeatureDescription>"
      "<FeatureRules><Never Id='a'><When Feature='T|ray' Is='1'/></Never></FeatureRules></Driver>");
  const auto found = definitionAt(Markup(cursor.text), cursor.offset);
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->chosen, (Range{43, 47}));
}

TEST(Definition, DefinitionAt_EndTag_IsItsStartTag) {
  EXPECT_EQ(definitionIn("<Feature></Feature><FeatureStaticGroup Name='a'></Feature|StaticGroup>"),
            "<FeatureStaticGroup");
}

TEST(Definition, DefinitionAt_OtherPlaces_IsNone) {
  EXPECT_EQ(definitionIn("<Feature SNMPOID='a|b' Name='x'/>"), "");
  EXPECT_EQ(definitionIn("<FeatureStaticGroup Name='x|y'/>"), "");
  EXPECT_EQ(definitionIn(" | "), "");
}

}  // namespace

}  // namespace driver_feature::editor

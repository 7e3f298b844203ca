#include "host/editor/markup.h"

#include <gtest/gtest.h>

#include "support/cursor.h"

namespace driver_feature::editor {

namespace {

// "KIND ELEMENT ATTRIBUTE WORD", with "-" for what is not there.
std::string placeIn(const std::string& marked) {
  static const char* const kKinds[] = {"nowhere", "content", "tag",  "end",
                                       "in tag",  "name",    "value"};
  const Cursor cursor(marked);
  const Markup markup(cursor.text);
  const MarkupPlace place = markup.placeAt(cursor.offset);
  const std::string word = cursor.text.substr(place.word.begin, place.word.end - place.word.begin);
  return std::string(kKinds[static_cast<int>(place.kind)]) + " " +
         (place.element != nullptr ? place.element->tag : "-") + " " +
         (place.attribute != nullptr ? place.attribute->name : "-") + " " +
         (word.empty() ? "-" : word);
}

TEST(Markup, PlaceAt_WholeText_KnowsWhereTheCursorIs) {
  EXPECT_EQ(placeIn("|<a/>"), "content - - -");
  EXPECT_EQ(placeIn("<a>|</a>"), "content a - -");
  EXPECT_EQ(placeIn("<a>|<b/></a>"), "content a - -");
  EXPECT_EQ(placeIn("<a><b/>|</a>"), "content a - -");
  EXPECT_EQ(placeIn("<a><b></b>|</a>"), "content a - -");
  EXPECT_EQ(placeIn("<a></a>|"), "content - - -");
  EXPECT_EQ(placeIn("<|ab/>"), "tag ab - ab");
  EXPECT_EQ(placeIn("<ab|>"), "tag ab - ab");
  EXPECT_EQ(placeIn("<p:a|b/>"), "tag ab - p:ab");
  EXPECT_EQ(placeIn("<a | b='1'/>"), "in tag a - -");
  EXPECT_EQ(placeIn("<a b|c='1'/>"), "name a bc bc");
  EXPECT_EQ(placeIn("<a b='|1'/>"), "value a b 1");
  EXPECT_EQ(placeIn("<a b='1|'/>"), "value a b 1");
  EXPECT_EQ(placeIn("<a b=\"|\"/>"), "value a b -");
  EXPECT_EQ(placeIn("<a><b></|b></a>"), "end b - b");
}

TEST(Markup, PlaceAt_TextThatIsBeingTyped_KnowsWhereTheCursorIs) {
  EXPECT_EQ(placeIn("<a><|</a>"), "tag  - -");
  EXPECT_EQ(placeIn("<a>\n  <b|\n  <c/></a>"), "tag b - b");
  EXPECT_EQ(placeIn("<a>\n  <b |\n  <c/></a>"), "in tag b - -");
  EXPECT_EQ(placeIn("<a>\n  <b n|\n  <c/></a>"), "name b n n");
  EXPECT_EQ(placeIn("<a>\n  <b n=|\n  <c/></a>"), "in tag b - -");
  EXPECT_EQ(placeIn("<a>\n  <b n=\"x|\n  <c/></a>").substr(0, 11), "value b n x");
  EXPECT_EQ(placeIn("<a><b>|"), "content b - -");
  EXPECT_EQ(placeIn("<a><b/>|"), "content a - -");
  EXPECT_EQ(placeIn("<a><b></|"), "end b - -");
  EXPECT_EQ(placeIn("<a><b></|</a>"), "end b - -");
  EXPECT_EQ(placeIn("</x|>"), "end - - x");
  EXPECT_EQ(placeIn("|"), "content - - -");
}

TEST(Markup, PlaceAt_CommentsAndTheLike_IsNowhere) {
  EXPECT_EQ(placeIn("<!-- <a |/> --><b/>"), "nowhere - - -");
  EXPECT_EQ(placeIn("<?xml |version='1.0'?><a/>"), "nowhere - - -");
  EXPECT_EQ(placeIn("<a><![CDATA[ <b |/> ]]></a>"), "nowhere - - -");
  EXPECT_EQ(placeIn("<!DOCTYPE |a><a/>"), "nowhere - - -");
  EXPECT_EQ(placeIn("<!-- not |ended <a/>"), "nowhere - - -");
}

TEST(Markup, Elements_MissingEndTags_EndWhereOthersDo) {
  const std::string text = "<a><b><c></b><d/></a>";
  const Markup markup(text);
  ASSERT_EQ(markup.elements().size(), 4U);
  EXPECT_EQ(markup.elements()[0].whole, (Range{0, 21}));
  EXPECT_EQ(markup.elements()[1].whole, (Range{3, 13}));
  EXPECT_EQ(markup.elements()[2].whole, (Range{6, 9}));
  EXPECT_EQ(markup.parentOf(markup.elements()[2])->tag, "b");
  EXPECT_EQ(markup.parentOf(markup.elements()[3])->tag, "a");
  EXPECT_EQ(markup.childrenOf(markup.elements()[0]).size(), 2U);
  EXPECT_EQ(markup.contentOf(markup.elements()[1]), "<c>");
}

TEST(Markup, Attributes_References_AreResolved) {
  const Markup markup("<a b='&lt;&#10;&#x1F5A8;&amp;amp; &nothing; &#xD;&' c/>");
  const MarkupElement& element = markup.elements().front();
  EXPECT_EQ(element.text("b"), "<\n\xF0\x9F\x96\xA8&amp; &nothing; \r&");
  EXPECT_EQ(element.text("c"), "");
  ASSERT_NE(element.find("c"), nullptr);
  EXPECT_FALSE(element.find("c")->value.has_value());
  EXPECT_EQ(element.find("d"), nullptr);
}

TEST(Markup, Elements_VeryDeep_StayWithinTheLimit) {
  std::string text;
  for (int i = 0; i < 100000; ++i) text += "<a>";
  const Markup markup(text);
  EXPECT_EQ(markup.elements().size(), 100000U);
  int depth = 0;
  for (const MarkupElement* at = &markup.elements().back(); at != nullptr;
       at = markup.parentOf(*at)) {
    ++depth;
  }
  EXPECT_EQ(depth, 257);
}

}  // namespace

}  // namespace driver_feature::editor

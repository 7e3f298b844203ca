#include "host/description/start_tags.h"

#include <gtest/gtest.h>

namespace driver_feature::host {
namespace {

// "LINE:COLUMN TEXT" of each text of each tag, in their order.
std::vector<std::string> textsOf(std::string_view document) {
  std::vector<std::string> texts;
  for (const StartTag& tag : findStartTags(document)) {
    for (const TextPlace& text : tag.texts) {
      texts.push_back(std::to_string(text.position.line) + ":" +
                      std::to_string(text.position.column) + " " + text.text);
    }
  }
  return texts;
}

TEST(StartTags, FindStartTags_ManyLines_EveryAttributeHasItsPlaces) {
  const auto tags = findStartTags("<?xml version='1.0'?>\n<A\n  b = \"x'y\"\n\tc:d=''/>");
  ASSERT_EQ(tags.size(), 1U);
  EXPECT_EQ(tags[0].position, (Position{2, 1}));
  ASSERT_EQ(tags[0].attributes.size(), 2U);
  const AttributePlace& b = tags[0].attributes.at("b");
  EXPECT_EQ(b.name, (Position{3, 3}));
  EXPECT_EQ(b.value, (Position{3, 8}));
  EXPECT_EQ(b.source, "x'y");
  const AttributePlace& d = tags[0].attributes.at("c:d");
  EXPECT_EQ(d.name, (Position{4, 2}));
  EXPECT_EQ(d.value, (Position{4, 7}));
  EXPECT_EQ(d.source, "");
}

TEST(StartTags, FindStartTags_Texts_BelongToTheInnermostElementThatIsOpen) {
  EXPECT_EQ(textsOf("<A>\n one \n<B/> two<C>\n  three &lt; 4</C>five</A>\n"),
            (std::vector<std::string>{"2:2 one", "3:6 two", "4:19 five", "4:3 three &lt; 4"}));
}

TEST(StartTags, FindStartTags_Namespaces_AreThoseOfPrefixesAndDefaults) {
  std::string found;
  for (const StartTag& tag :
       findStartTags("<A><B xmlns='u'><C/><D xmlns=''><E/></D><p:F xmlns:p='p'><G/>"
                     "<p:H xmlns=''><I/></p:H></p:F></B><J/></A>")) {
    found += tag.name + (tag.isInNamespace ? "+" : "-");
  }
  EXPECT_EQ(found, "A-B+C+D-E-p:F+G+p:H+I-J-");
}

TEST(StartTags, FindStartTags_CommentsAndBlanks_AreNotTexts) {
  EXPECT_EQ(textsOf("<A> <!-- a <B> --> <?p <C> ?>\n<![CDATA[ \n ]]></A>"),
            std::vector<std::string>{});
  EXPECT_EQ(textsOf("<A><!-->--><![CDATA[ <B> ]]>c<!-- d -->e</A>"),
            (std::vector<std::string>{"1:22 <B>", "1:29 c", "1:40 e"}));
}

TEST(StartTags, FindStartTags_NotWellFormed_GivesFewerTags) {
  EXPECT_EQ(findStartTags("<A><B c='").size(), 2U);
  EXPECT_EQ(findStartTags("</A>x<!-- ").size(), 0U);
  EXPECT_EQ(textsOf("x</A>y<A>z"), std::vector<std::string>{"1:10 z"});
}

TEST(StartTags, FindComments_EachComment_HasTheElementAfterIt) {
  const auto comments = findComments(
      "<?xml version='1.0'?><!DOCTYPE a [<!-- no -->]>\n"
      "<!-- one --><a>\n"
      "  <!-- two --> <!-- three -->\n"
      "  <b x='<!-- no -->'><c/></b><d/>\n"
      "  <![CDATA[<!-- no -->]]> <!-- four --><e\n/>\n"
      "</a><!-- five -->\n");
  ASSERT_EQ(comments.size(), 5U);
  EXPECT_EQ(comments[0].text, " one ");
  EXPECT_EQ(comments[0].position, (Position{2, 1}));
  EXPECT_EQ(comments[0].element, (Position{2, 13}));
  EXPECT_EQ(comments[0].elementEnd, (Position{7, 5}));
  for (const std::size_t i : {1U, 2U}) {
    EXPECT_EQ(comments[i].element, (Position{4, 3})) << i;
    EXPECT_EQ(comments[i].elementEnd, (Position{4, 30})) << i;
  }
  EXPECT_EQ(comments[2].position, (Position{3, 16}));
  EXPECT_EQ(comments[3].element, (Position{5, 40}));
  EXPECT_EQ(comments[3].elementEnd, (Position{6, 3}));
  EXPECT_EQ(comments[4].text, " five ");
  EXPECT_EQ(comments[4].element.line, 0);
}

TEST(StartTags, FindComments_CommentWithoutAnEnd_TakesTheRest) {
  const auto comments = findComments("<a><!-- x");
  ASSERT_EQ(comments.size(), 1U);
  EXPECT_EQ(comments[0].text, " x");
}

}  // namespace
}  // namespace driver_feature::host

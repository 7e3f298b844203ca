#include "VORNWriter.h"

#include "ticket_test.h"

namespace {

using driver_feature::testing::TicketTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class VORNWriterTest : public TicketTest {};

TEST_F(VORNWriterTest, Serialize_NoCommands_RendersBothSections) {
  writer_.initializeJobTicketDOM("one", "two");
  EXPECT_EQ(render(), emptyTicket("one", "two"));
  EXPECT_THAT(log_.take(), IsEmpty());
}

TEST_F(VORNWriterTest, Initialize_NullArguments_CountAsEmpty) {
  writer_.initializeJobTicketDOM(nullptr, nullptr);
  EXPECT_EQ(render(), emptyTicket("", ""));
  writer_.initializeJobTicketDOM("x", nullptr);
  EXPECT_EQ(render(), emptyTicket("x", ""));
  EXPECT_THAT(log_.take(), IsEmpty());
}

TEST_F(VORNWriterTest, Initialize_Arguments_AreEscaped) {
  writer_.initializeJobTicketDOM("<a> & \"b\"", "\xE4");
  EXPECT_EQ(render(), emptyTicket("&lt;a&gt; &amp; &quot;b&quot;", "\xC3\xA4"));
}

TEST_F(VORNWriterTest, Initialize_ArgumentThatXmlCannotHold_IsLoggedAndEmpty) {
  writer_.initializeJobTicketDOM("a\x07", "two");
  EXPECT_THAT(log_.take(), ElementsAre("1 XMLParser: VORNWriter - The argument1 holds the "
                                       "character U+0007, which XML cannot hold."));
  EXPECT_EQ(render(), emptyTicket("", "two"));
}

TEST_F(VORNWriterTest, Initialize_Twice_StartsAnew) {
  start();
  EXPECT_NE(command("copies", "integer", "1", true), nullptr);
  writer_.initializeJobTicketDOM("three", "four");
  EXPECT_EQ(render(), emptyTicket("three", "four"));
  EXPECT_THAT(log_.take(), IsEmpty());
}

TEST_F(VORNWriterTest, Create_SectionsInterleaved_EachKeepsTheOrderOfCreation) {
  start();
  EXPECT_NE(command("c", "integer", "1", false), nullptr);
  EXPECT_NE(command("b", "integer", "2", true), nullptr);
  _xmlNode* media = group("g", "collection", false);
  EXPECT_NE(command("a", "integer", "3", false), nullptr);
  EXPECT_NE(command("a", "integer", "4", true), nullptr);
  EXPECT_NE(childCommand(media, "y", "keyword", "5"), nullptr);
  EXPECT_NE(group("e", "collection", true), nullptr);
  EXPECT_NE(childGroup(media, "x", "collection"), nullptr);
  EXPECT_NE(childCommand(media, "w", "keyword", "6"), nullptr);
  EXPECT_EQ(render(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<JobTicket argument1=\"one\" argument2=\"two\">\n"
            "  <JobTicketAttributes>\n"
            "    <Command name=\"b\" syntax=\"integer\" value=\"2\"/>\n"
            "    <Command name=\"a\" syntax=\"integer\" value=\"4\"/>\n"
            "    <Group name=\"e\" syntax=\"collection\"/>\n"
            "  </JobTicketAttributes>\n"
            "  <OutputAttributes>\n"
            "    <Command name=\"c\" syntax=\"integer\" value=\"1\"/>\n"
            "    <Group name=\"g\" syntax=\"collection\">\n"
            "      <Command name=\"y\" syntax=\"keyword\" value=\"5\"/>\n"
            "      <Group name=\"x\" syntax=\"collection\"/>\n"
            "      <Command name=\"w\" syntax=\"keyword\" value=\"6\"/>\n"
            "    </Group>\n"
            "    <Command name=\"a\" syntax=\"integer\" value=\"3\"/>\n"
            "  </OutputAttributes>\n"
            "</JobTicket>\n");
  EXPECT_THAT(log_.take(), IsEmpty());
}

TEST_F(VORNWriterTest, Create_GroupsSixtyFourDeep_ComeBackNested) {
  start();
  _xmlNode* parent = group("0", "collection", true);
  for (int i = 1; i < 64; ++i) {
    parent = childGroup(parent, std::to_string(i), "collection");
    ASSERT_NE(parent, nullptr) << i;
  }
  EXPECT_NE(childCommand(parent, "last", "integer", "64"), nullptr);
  const auto document = readBack(render());
  ASSERT_NE(document, nullptr);
  void* element = pParserInstance->firstChild(document->root());
  for (int i = 0; i < 64; ++i) {
    element = pParserInstance->firstChild(element);
    EXPECT_EQ(attribute(element, "name"), std::to_string(i));
    EXPECT_EQ(pParserInstance->childCount(element), 1);
  }
  EXPECT_EQ(attribute(pParserInstance->firstChild(element), "value"), "64");
}

TEST_F(VORNWriterTest, Serialize_DeeperThanThirtyLevels_IsIndentedAsTheThirtieth) {
  start();
  _xmlNode* parent = group("2", "s", true);
  for (int level = 3; level <= 30; ++level) parent = childGroup(parent, std::to_string(level), "s");
  EXPECT_NE(childCommand(parent, "31", "s", "v"), nullptr);
  const std::string indent(60, ' ');
  EXPECT_THAT(render(),
              ::testing::HasSubstr("\n  " + indent.substr(4) +
                                   "<Group name=\"29\" "
                                   "syntax=\"s\">\n" +
                                   indent + "<Group name=\"30\" syntax=\"s\">\n" + indent +
                                   "<Command name=\"31\" syntax=\"s\" "
                                   "value=\"v\"/>\n" +
                                   indent + "</Group>\n  " + indent.substr(4) + "</Group>\n"));
}

TEST_F(VORNWriterTest, Create_BeforeInitialize_IsLoggedAndNull) {
  EXPECT_EQ(command("a", "integer", "1", true), nullptr);
  EXPECT_EQ(command("a", "integer", "1", false), nullptr);
  EXPECT_EQ(group("a", "collection", true), nullptr);
  const std::string line = "1 XMLParser: VORNWriter - A node is made before the ticket is started.";
  EXPECT_THAT(log_.take(), ElementsAre(line, line, line));
  EXPECT_EQ(render(), emptyTicket("", ""));
}

TEST_F(VORNWriterTest, CreateChild_NullParent_IsLoggedAndNull) {
  start();
  EXPECT_EQ(childCommand(nullptr, "a", "integer", "1"), nullptr);
  EXPECT_EQ(childGroup(nullptr, "a", "collection"), nullptr);
  const std::string line = "1 XMLParser: VORNWriter - A node is made without a parent.";
  EXPECT_THAT(log_.take(), ElementsAre(line, line));
  EXPECT_EQ(render(), emptyTicket("one", "two"));
}

TEST_F(VORNWriterTest, Serialize_Output_IsReplaced) {
  start();
  std::string output = "what it held";
  writer_.serializeTicket(output);
  EXPECT_EQ(output, emptyTicket("one", "two"));
}

TEST_F(VORNWriterTest, Serialize_SecondTime_RendersAnEmptyTicket) {
  start();
  EXPECT_NE(command("copies", "integer", "1", true), nullptr);
  render();
  EXPECT_EQ(render(), emptyTicket("", ""));
  EXPECT_EQ(command("copies", "integer", "1", true), nullptr);
  EXPECT_THAT(log_.take(), ElementsAre("1 XMLParser: VORNWriter - A node is made before the "
                                       "ticket is started."));
}

TEST_F(VORNWriterTest, Serialize_ThenInitialize_StartsANewTicket) {
  start();
  render();
  start();
  EXPECT_NE(command("copies", "integer", "1", true), nullptr);
  EXPECT_NE(render(), emptyTicket("one", "two"));
}

TEST_F(VORNWriterTest, Create_Texts_AreLeftAlone) {
  start();
  std::string name = "a\xE4";
  std::string syntax = "name";
  std::string value = "b&";
  EXPECT_NE(writer_.createCommandNode(name, syntax, value, true), nullptr);
  EXPECT_EQ(name, "a\xE4");
  EXPECT_EQ(syntax, "name");
  EXPECT_EQ(value, "b&");
  render();
}

TEST_F(VORNWriterTest, Writers_SideBySide_DoNotMix) {
  VORNWriter other;
  start();
  other.initializeJobTicketDOM("three", "four");
  EXPECT_NE(command("copies", "integer", "1", true), nullptr);
  std::string output;
  other.serializeTicket(output);
  EXPECT_EQ(output, emptyTicket("three", "four"));
  render();
}

}  // namespace

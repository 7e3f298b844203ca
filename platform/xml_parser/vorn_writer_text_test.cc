// What becomes of texts on their way through a ticket.

#include <string>
#include <utility>

#include "ticket_test.h"

namespace {

using driver_feature::testing::TicketTest;
using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TicketTextTest : public TicketTest {
 protected:
  // The text as a reader of the ticket gets it, as name, syntax and value.
  void expectReadBack(const std::string& text, const std::string& expected) {
    start();
    EXPECT_NE(command(text, text, text, false), nullptr) << text;
    EXPECT_NE(group(text, text, true), nullptr) << text;
    const auto document = readBack(render());
    ASSERT_NE(document, nullptr);
    void* section = pParserInstance->firstChild(document->root());
    void* groupElement = pParserInstance->firstChild(section);
    void* element = pParserInstance->firstChild(pParserInstance->nextSibling(section));
    for (const char* name : {"name", "syntax", "value"}) {
      EXPECT_EQ(attribute(element, name), expected) << name;
    }
    EXPECT_EQ(attribute(groupElement, "name"), expected);
    EXPECT_EQ(attribute(groupElement, "syntax"), expected);
    EXPECT_THAT(log_.take(), IsEmpty());
  }

  // Each text of each operation is refused with a line that names it, and
  // the ticket stays as it was.
  void expectRefused(const std::string& text, const std::string& character) {
    const auto line = [&](const std::string& role) {
      return "1 XMLParser: VORNWriter - The " + role + " holds the character " + character +
             ", which XML cannot hold.";
    };
    start();
    _xmlNode* parent = group("g", "collection", true);
    EXPECT_EQ(command(text, "s", "v", true), nullptr);
    EXPECT_EQ(command("n", text, "v", true), nullptr);
    EXPECT_EQ(command("n", "s", text, false), nullptr);
    EXPECT_THAT(log_.take(), ElementsAre(line("name"), line("syntax"), line("value")));
    EXPECT_EQ(group(text, "s", true), nullptr);
    EXPECT_EQ(group("n", text, false), nullptr);
    EXPECT_THAT(log_.take(), ElementsAre(line("name"), line("syntax")));
    EXPECT_EQ(childCommand(parent, text, "s", "v"), nullptr);
    EXPECT_EQ(childCommand(parent, "n", text, "v"), nullptr);
    EXPECT_EQ(childCommand(parent, "n", "s", text), nullptr);
    EXPECT_THAT(log_.take(), ElementsAre(line("name"), line("syntax"), line("value")));
    EXPECT_EQ(childGroup(parent, text, "s"), nullptr);
    EXPECT_EQ(childGroup(parent, "n", text), nullptr);
    EXPECT_THAT(log_.take(), ElementsAre(line("name"), line("syntax")));
    EXPECT_EQ(render(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<JobTicket argument1=\"one\" argument2=\"two\">\n"
              "  <JobTicketAttributes>\n"
              "    <Group name=\"g\" syntax=\"collection\"/>\n"
              "  </JobTicketAttributes>\n"
              "  <OutputAttributes/>\n"
              "</JobTicket>\n");
  }
};

TEST_F(TicketTextTest, Create_TextThatXmlCanHold_ComesBackIdentical) {
  for (const std::string& text : {""s,
                                  " "s,
                                  "  two  "s,
                                  "<&>\"'"s,
                                  "&amp;&#65;"s,
                                  "]]>"s,
                                  "<!-- -->"s,
                                  "a\tb\nc\rd\r\ne"s,
                                  "\n"s,
                                  "\x7F"s,
                                  "\xC2\x80\xC2\x85\xC2\x9F"s,
                                  "\xC3\xA4"s,
                                  "\xE2\x82\xAC\xE2\x80\xA8"s,
                                  "\xED\x9F\xBF"s,
                                  "\xEE\x80\x80"s,
                                  "\xEF\xBF\xBD"s,
                                  "\xF0\x90\x80\x80"s,
                                  "\xF0\x9F\xBF\xBF"s,
                                  "\xF4\x8F\xBF\xBF"s,
                                  "1 no XML name: <"s}) {
    expectReadBack(text, text);
  }
}

TEST_F(TicketTextTest, Create_LongText_ComesBackIdentical) {
  const std::string text(1U << 20, '\n');
  expectReadBack(text, text);
}

// Rendered bytes: what a reader would change is written as a reference.
TEST_F(TicketTextTest, Serialize_SpecialCharacters_AreReferences) {
  start();
  EXPECT_NE(command("\t\n\r", "<&>\"'", "\xC3\xA4\xC2\x85\x7F", true), nullptr);
  EXPECT_EQ(render(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<JobTicket argument1=\"one\" argument2=\"two\">\n"
            "  <JobTicketAttributes>\n"
            "    <Command name=\"&#9;&#10;&#13;\" syntax=\"&lt;&amp;&gt;&quot;'\" "
            "value=\"\xC3\xA4\xC2\x85\x7F\"/>\n"
            "  </JobTicketAttributes>\n"
            "  <OutputAttributes/>\n"
            "</JobTicket>\n");
}

TEST_F(TicketTextTest, Serialize_OneSpecialCharacterAlone_IsAReference) {
  const std::pair<const char*, const char*> rows[] = {
      {"<", "&lt;"},  {">", "&gt;"},   {"&", "&amp;"},  {"\"", "&quot;"},
      {"\t", "&#9;"}, {"\n", "&#10;"}, {"\r", "&#13;"}, {"\x7F", "\x7F"},
  };
  for (const auto& [text, reference] : rows) {
    start();
    EXPECT_NE(command("a", "b", text, true), nullptr);
    EXPECT_THAT(render(), ::testing::HasSubstr("value=\"" + std::string(reference) + "\"/>"));
  }
}

TEST_F(TicketTextTest, Create_TextIsNotUtf8_IsTakenAsLatin1) {
  struct Row {
    std::string text;
    std::string expected;
  };
  const Row rows[] = {
      {"\xE4", "\xC3\xA4"},
      {"\xFF\x80", "\xC3\xBF\xC2\x80"},
      {"a\xC3", "a\xC3\x83"},                                    // Cut off.
      {"\xE2\x82", "\xC3\xA2\xC2\x82"},                          // Cut off.
      {"\xF0\x9F\x96", "\xC3\xB0\xC2\x9F\xC2\x96"},              // Cut off.
      {"\xC3\x28", "\xC3\x83\x28"},                              // No second byte.
      {"\xC3\xC3", "\xC3\x83\xC3\x83"},                          // No second byte.
      {"\xE2\x82\x28", "\xC3\xA2\xC2\x82\x28"},                  // No third byte.
      {"\x80", "\xC2\x80"},                                      // No first byte.
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                          // Longer than need be.
      {"\xC1\xBF", "\xC3\x81\xC2\xBF"},                          // Longer than need be.
      {"\xE0\x9F\xBF", "\xC3\xA0\xC2\x9F\xC2\xBF"},              // Longer than need be.
      {"\xF0\x8F\xBF\xBF", "\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF"},  // Longer than need be.
      {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"},  // Beyond U+10FFFF.
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},              // The first surrogate.
      {"\xED\xBF\xBF", "\xC3\xAD\xC2\xBF\xC2\xBF"},              // The last one.
      {"\xF8\x88\x80\x80\x80", "\xC3\xB8\xC2\x88\xC2\x80\xC2\x80\xC2\x80"},
      {"\xC3\xA4 \xE4", "\xC3\x83\xC2\xA4 \xC3\xA4"},  // All of it, not a part.
  };
  for (const Row& row : rows) expectReadBack(row.text, row.expected);
}

TEST_F(TicketTextTest, Create_CharacterThatXmlCannotHold_IsRefusedAndNeverWritten) {
  const char* const hexadecimal = "0123456789ABCDEF";
  for (int control = 0; control < 0x20; ++control) {
    if (control == '\t' || control == '\n' || control == '\r') continue;
    const std::string character = std::string("U+00") + (control < 16 ? '0' : '1') +
                                  hexadecimal[static_cast<std::size_t>(control % 16)];
    expectRefused("a" + std::string(1, static_cast<char>(control)) + "b", character);
  }
  expectRefused("\0"s, "U+0000");
  expectRefused("after\0"s, "U+0000");
  expectRefused("\xE4\x01", "U+0001");
  expectRefused("\xE4\0"s, "U+0000");
  expectRefused("\xEF\xBF\xBE", "U+FFFE");
  expectRefused("x\xEF\xBF\xBF", "U+FFFF");
}

TEST_F(TicketTextTest, Create_SeveralCharactersThatXmlCannotHold_TheFirstIsNamed) {
  start();
  EXPECT_EQ(command("ok\x1F\x02", "\x03", "v", true), nullptr);
  EXPECT_THAT(log_.take(), ElementsAre("1 XMLParser: VORNWriter - The name holds the character "
                                       "U+001F, which XML cannot hold."));
  render();
}

}  // namespace

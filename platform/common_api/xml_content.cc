#include "xml_content.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "xml_characters.h"

namespace driver_feature {

namespace {

// Markup that is not an element, and where it ends.
struct Markup {
  std::string_view begin;
  std::string_view end;
  bool isText;
};

constexpr Markup kMarkups[] = {
    {"<!--", "-->", false},
    {"<![CDATA[", "]]>", true},
    {"<?", "?>", false},
};

// The text has been found well-formed, so that what begins also ends.
const char* find(const char* text, std::string_view wanted) {
  while (std::string_view(text, wanted.size()) != wanted) ++text;
  return text;
}

bool startsWith(const char* text, std::string_view wanted) {
  const auto [end, other] = std::mismatch(wanted.begin(), wanted.end(), text);
  return end == wanted.end();
}

// A line end of any form is one character.
void appendText(const char* text, const char* end, std::string& content) {
  for (; text != end; ++text) {
    if (*text != '\r') {
      content += *text;
    } else if (text[1] != '\n') {
      content += '\n';
    }
  }
}

// Returns the end of the markup; `text` itself before a tag.
const char* takeMarkup(const char* text, std::string& content) {
  for (const Markup& markup : kMarkups) {
    if (!startsWith(text, markup.begin)) continue;
    const char* inside = text + markup.begin.size();
    const char* end = find(inside, markup.end);
    if (markup.isText) appendText(inside, end, content);
    return end + markup.end.size();
  }
  return text;
}

const char* takeReference(const char* text, std::string& content) {
  unsigned character = 0;
  const std::size_t length = readReference(text, character);
  std::array<char, 4> bytes{};
  content.append(bytes.data(), writeCharacter(character, bytes.data()));
  return text + length;
}

}  // namespace

XMLContent contentOf(const Element& element) {
  XMLContent content;
  AttributeReader attribute(element);
  while (attribute.read()) continue;
  const char* text = attribute.end();
  content.line = element.line() + static_cast<int>(std::count(element.tag(), text, '\n'));
  if (*text == '/') return content;
  ++text;
  for (;;) {
    const char* end = text;
    while (*end != '<' && *end != '&') ++end;
    appendText(text, end, content.text);
    text = *end == '&' ? takeReference(end, content.text) : takeMarkup(end, content.text);
    if (text == end) return content;
  }
}

}  // namespace driver_feature

#include "xml_element.h"

#include <cstring>

#include "xml_characters.h"

namespace driver_feature {

namespace {

const char* skipBlanks(const char* text) {
  while (isOfClass(*text, kBlank)) ++text;
  return text;
}

const char* endOfName(const char* text) {
  while (isOfClass(*text, kNameByte)) ++text;
  return text;
}

// Writes the value from its first reference or blank on. Returns its end.
char* writeResolved(const char* text, const char* end, char* out) {
  for (;;) {
    while (text != end && isOfClass(*text, kLiteral)) *out++ = *text++;
    if (text == end) return out;
    if (*text == '&') {
      unsigned character = 0;
      text += readReference(text, character);
      out = writeCharacter(character, out);
    } else {
      text += *text == '\r' && text[1] == '\n' ? 2 : 1;  // The two are one line end.
      *out++ = ' ';
    }
  }
}

}  // namespace

Element& ElementStore::add() {
  if (size_ == pieces_.size() * kPiece) pieces_.push_back(std::make_unique<Element[]>(kPiece));
  return (*this)[size_++];
}

AttributeReader::AttributeReader(const char* tag) : next_(endOfName(tag)) {}

bool AttributeReader::read() {
  next_ = skipBlanks(next_);
  if (*next_ == '>' || *next_ == '/') return false;
  const char* end = endOfName(next_);
  name_.assign(next_, end);
  const char* quote = skipBlanks(skipBlanks(end) + 1);
  value_ = quote + 1;
  valueEnd_ = std::strchr(value_, *quote);
  next_ = valueEnd_ + 1;
  return true;
}

void resolveValue(const char* text, const char* end, std::string& value) {
  value.assign(text, end);
  std::size_t plain = 0;
  while (plain < value.size() && isOfClass(value[plain], kLiteral)) ++plain;
  if (plain == value.size()) return;
  // What a reference means is shorter than the reference.
  const char* valueEnd = writeResolved(text + plain, end, value.data() + plain);
  value.resize(static_cast<std::size_t>(valueEnd - value.data()));
}

std::string_view nameAt(const char* tag) {
  return {tag, static_cast<std::size_t>(endOfName(tag) - tag)};
}

}  // namespace driver_feature

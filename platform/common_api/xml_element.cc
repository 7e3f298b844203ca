#include "xml_element.h"

#include <algorithm>
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

// The end of what means itself.
const char* endOfLiteral(const char* text, const char* end, bool hasBlanks) {
  if (hasBlanks) {
    while (text != end && isOfClass(*text, kLiteral)) ++text;
    return text;
  }
  const void* reference = std::memchr(text, '&', static_cast<std::size_t>(end - text));
  return reference != nullptr ? static_cast<const char*>(reference) : end;
}

// Writes what the reference or the blank at `text` means, and moves over both.
void resolveOne(const char*& text, char*& out) {
  if (*text == '&') {
    unsigned character = 0;
    text += readReference(text, character);
    out = writeCharacter(character, out);
  } else {
    text += *text == '\r' && text[1] == '\n' ? 2 : 1;  // The two are one line end.
    *out++ = ' ';
  }
}

}  // namespace

Element& ElementStore::add() {
  if (size_ == pieces_.size() * kPiece) pieces_.push_back(std::make_unique<Element[]>(kPiece));
  return (*this)[size_++];
}

AttributeReader::AttributeReader(const Element& element)
    : next_(endOfName(element.tag)), hasBlanks_(element.hasBlanks) {}

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

void resolveValue(const char* text, const char* end, bool hasBlanks, std::string& value) {
  value.assign(text, end);
  const char* literal = text;
  text = endOfLiteral(text, end, hasBlanks);
  if (text == end) return;
  // What a reference means is shorter than the reference.
  char* out = value.data() + (text - literal);
  while (text != end) {
    resolveOne(text, out);
    literal = text;
    text = endOfLiteral(text, end, hasBlanks);
    out = std::copy(literal, text, out);
  }
  value.resize(static_cast<std::size_t>(out - value.data()));
}

std::string_view nameAt(const char* tag) {
  return {tag, static_cast<std::size_t>(endOfName(tag) - tag)};
}

}  // namespace driver_feature

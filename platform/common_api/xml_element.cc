#include "xml_element.h"

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

}  // namespace

AttributeReader::AttributeReader(const Element& element) : next_(endOfName(element.tag())) {}

bool AttributeReader::read() {
  next_ = skipBlanks(next_);
  if (*next_ == '>' || *next_ == '/') return false;
  name_ = nameAt(next_);
  const char* sign = skipBlanks(name_.data() + name_.size());  // "=".
  const char* quote = skipBlanks(sign + 1);
  value_ = quote + 1;
  next_ = value_.data() + value_.size() + 1;
  return true;
}

std::string_view nameAt(const char* tag) {
  return {tag, static_cast<std::size_t>(endOfName(tag) - tag)};
}

}  // namespace driver_feature

#include "xml_cursor.h"

#include <algorithm>

namespace driver_feature {

bool XMLCursor::scanDeclaration() {
  if (!startsWith("<?xml") || !isOfClass(next_[5], kBlank)) return true;
  next_ += 5;
  if (!scanPseudoAttribute("version") || !takeQuoted({"1.0"})) return false;
  if (scanPseudoAttribute("encoding") && !takeQuoted({"UTF-8", "utf-8"})) return false;
  if (scanPseudoAttribute("standalone") && !takeQuoted({"yes", "no"})) return false;
  skipBlanks();
  return take("?>");
}

// A name with blanks before it, and the sign after it.
bool XMLCursor::scanPseudoAttribute(std::string_view name) {
  char* start = next_;
  const int line = line_;
  if (skipBlanks() && take(name)) {
    skipBlanks();
    if (take('=')) {
      skipBlanks();
      return true;
    }
  }
  next_ = start;
  line_ = line;
  return false;
}

bool XMLCursor::takeQuoted(std::initializer_list<std::string_view> values) {
  const char quote = *next_;
  if (quote != '"' && quote != '\'') return false;
  return std::any_of(values.begin(), values.end(), [this, quote](std::string_view value) {
    char* start = next_++;
    if (take(value) && take(quote)) return true;
    next_ = start;
    return false;
  });
}

bool XMLCursor::scanMiscellany() {
  for (;;) {
    skipBlanks();
    if (startsWith("<!--")) {
      if (!scanComment()) return false;
    } else if (startsWith("<?")) {
      if (!scanInstruction()) return false;
    } else {
      return true;
    }
  }
}

bool XMLCursor::scanComment() {
  if (!take("<!--")) return false;
  return moveTo("--") && take("-->");
}

bool XMLCursor::scanInstruction() {
  std::string_view target;
  if (!take("<?") || !scanName(target)) return false;
  // Reserved, whatever the case of its letters.
  if (target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
      (target[2] | 0x20) == 'l') {
    return false;
  }
  if (take("?>")) return true;
  return skipBlanks() && moveTo("?>") && take("?>");
}

bool XMLCursor::scanCharacterData() {
  return take("<![CDATA[") && moveTo("]]>") && take("]]>");
}

// Over characters, up to a text.
bool XMLCursor::moveTo(std::string_view wanted) {
  while (*next_ != wanted.front() || !startsWith(wanted)) {
    if (!scanCharacter()) return false;
  }
  return true;
}

}  // namespace driver_feature

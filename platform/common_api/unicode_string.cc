#include "UnicodeString.h"

UnicodeString::UnicodeString() = default;

UnicodeString& UnicodeString::operator=(const std::string& text) {
  text_ = text;
  return *this;
}

UnicodeString& UnicodeString::operator=(const char* text) {
  text_ = text != nullptr ? text : "";
  return *this;
}

const std::string& UnicodeString::utf8() const {
  return text_;
}

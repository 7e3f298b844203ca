// The platform's text. Holds UTF-8 bytes, NUL characters included.
#ifndef PLATFORM_COMMON_API_UNICODE_STRING_H_
#define PLATFORM_COMMON_API_UNICODE_STRING_H_

#include <string>

class UnicodeString {
 public:
  UnicodeString();
  UnicodeString& operator=(const std::string& text);
  UnicodeString& operator=(const char* text);  // Null counts as empty.

  const std::string& utf8() const;

 private:
  std::string text_;
};

#endif  // PLATFORM_COMMON_API_UNICODE_STRING_H_

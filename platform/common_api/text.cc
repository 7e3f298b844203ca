#include "Text.h"

#include <charconv>

char* itoa(int value, char* text, int radix) {
  // A sign, 32 binary digits and the end of the text.
  constexpr int kLongest = 33;
  char* end = text;
  if (radix >= 2 && radix <= 36) end = std::to_chars(text, text + kLongest, value, radix).ptr;
  *end = '\0';
  return text;
}

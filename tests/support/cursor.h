// A text with a cursor in it, for tests of what happens at a place.
#ifndef TESTS_SUPPORT_CURSOR_H_
#define TESTS_SUPPORT_CURSOR_H_

#include <cstddef>
#include <string>

// "<Feature |" is the text "<Feature " with the cursor at its end.
struct Cursor {
  explicit Cursor(const std::string& marked)
      : offset(marked.find('|')), text(std::string(marked).erase(offset, 1)) {}

  std::size_t offset;
  std::string text;
};

#endif  // TESTS_SUPPORT_CURSOR_H_

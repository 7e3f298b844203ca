// How a line of the shell is written: words between blanks.
//
//   set Owner "A. \"B\" C"     double quotes keep blanks; escapes work in them
//   set Owner 'A. "B" C'       single quotes keep everything
//   set Owner A.\ B            an escape keeps one character
//   get Owner                  # a comment begins where a word may
//
// Escapes: \n line feed, \r carriage return, \t tab, \e escape (ESC), \xNN the
// byte of two hexadecimal digits, and a backslash before a blank, a quote, a #
// or a backslash for that character.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_WORDS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_WORDS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::cli {

using Words = std::vector<std::string>;

// Splits a line. None for an empty line and for a comment. Refused: a quote
// that is not closed, and an escape that is not listed above; `words` then
// holds the words before it.
host::Result<> splitWords(std::string_view line, Words& words);

// A line up to the cursor: the words before the one that is being written, and
// what is written of that one, without its quotes and escapes. Never refused: a
// quote that is open may still be closed.
struct UnfinishedLine {
  Words before;
  std::string word;
  std::size_t begin = 0;  // Where the word begins in the line.
  char quote = 0;         // The quote that is open at the cursor; 0 for none.
};
UnfinishedLine splitUnfinished(std::string_view line);

// The text as one word that splitWords() reads back: as it is when it needs no
// quotes, else in double quotes. Bytes of UTF-8 stay as they are, other bytes
// and control characters are written as escapes.
std::string quoteWord(std::string_view text);

// The same without the double quotes around it.
std::string escapeWord(std::string_view text);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_WORDS_H_

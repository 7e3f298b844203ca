// Comparing two texts line by line.
#ifndef HOST_BASE_LINE_DIFF_H_
#define HOST_BASE_LINE_DIFF_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::host {

// A line of one text or of both.
struct DiffLine {
  char mark = ' ';  // '-' only in the first text, '+' only in the second, ' ' in both.
  std::string text;

  bool operator==(const DiffLine&) const = default;
};

// The lines of a text without their line ends, in a form that shows each byte:
// a backslash as \\, control characters and bytes that are not valid UTF-8 as
// \r, \t or \xNN. A last line without a line end is followed by the line "\ no
// line end".
std::vector<std::string> visibleLines(std::string_view text);

// What turns the first text into the second, with as many lines as possible in
// both. Two very large texts that differ throughout are reported as one
// replacement.
std::vector<DiffLine> diffLines(const std::vector<std::string>& first,
                                const std::vector<std::string>& second);

// The changed lines with up to `context` common ones around them, each part
// under a heading "@@ -LINE,COUNT +LINE,COUNT @@".
std::vector<DiffLine> withContext(const std::vector<DiffLine>& lines, std::size_t context);

}  // namespace driver_feature::host

#endif  // HOST_BASE_LINE_DIFF_H_

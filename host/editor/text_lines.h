// Places in a text as editors count them: lines from 0, and in a line units of
// UTF-16.
#ifndef HOST_EDITOR_TEXT_LINES_H_
#define HOST_EDITOR_TEXT_LINES_H_

#include <cstddef>
#include <string_view>
#include <vector>

namespace driver_feature::editor {

struct EditorPlace {
  long line = 0;
  long character = 0;

  bool operator==(const EditorPlace&) const = default;
};

// The text, UTF-8, must outlive it. A line ends at LF, CR LF or CR.
class TextLines {
 public:
  explicit TextLines(std::string_view utf8);

  // Of a byte of the text; of one inside a character, the character's.
  EditorPlace placeOf(std::size_t offset) const;

  // A place after the end of a line is its end; one after the last line is the end
  // of the text. One between the two units of a character is its beginning.
  std::size_t offsetOf(EditorPlace place) const;

 private:
  std::size_t endOf(std::size_t line) const;  // Without the line end.
  long unitsBefore(std::size_t offset) const;

  std::string_view text_;
  std::vector<std::size_t> starts_;
  std::vector<long> units_;  // Before each block of the text: a line may be very long.
};

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_TEXT_LINES_H_

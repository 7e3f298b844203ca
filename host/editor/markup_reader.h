// Reads the elements of a text into a Markup.
#ifndef HOST_EDITOR_MARKUP_READER_H_
#define HOST_EDITOR_MARKUP_READER_H_

#include <string_view>
#include <vector>

#include "host/editor/markup.h"

namespace driver_feature::editor {

class MarkupReader {
 public:
  explicit MarkupReader(Markup& markup) : markup_(markup), text_(markup.text_) {}

  void read();

 private:
  bool startsWith(std::string_view word) const { return text_.substr(at_).starts_with(word); }
  bool atEnd() const { return at_ >= text_.size(); }
  bool takeOpaque();
  void takeStartTag();
  void takeEndTag();
  void takeAttribute(MarkupElement& element);
  void takeValue(MarkupAttribute& attribute);
  Range takeUntilOneOf(std::string_view ends);
  void skipBlanks();
  void close(std::size_t depth, std::size_t end);

  Markup& markup_;
  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<std::size_t> open_;  // Elements by number.
};

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_MARKUP_READER_H_

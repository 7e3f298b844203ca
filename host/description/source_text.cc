#include "host/description/source_text.h"

namespace driver_feature::host {

namespace {

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

SourceText::SourceText(std::string_view utf8) : text_(utf8), starts_{0} {
  for (std::size_t end = text_.find('\n'); end != std::string_view::npos;
       end = text_.find('\n', end + 1)) {
    starts_.push_back(end + 1);
  }
}

std::optional<std::string_view> SourceText::line(int number) const {
  const auto index = static_cast<std::size_t>(number) - 1;
  if (number < 1 || index >= starts_.size()) return std::nullopt;
  const bool isLast = index + 1 == starts_.size();
  const std::size_t end = isLast ? text_.size() : starts_[index + 1] - 1;
  std::string_view line = text_.substr(starts_[index], end - starts_[index]);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::optional<std::size_t> SourceText::offsetOf(Position position) const {
  const auto content = line(position.line);
  if (!content || position.column < 1) return std::nullopt;
  const std::size_t start = startOf(position.line);
  if (known_.line != position.line || position.column == 1) {
    known_ = {position.line, 1};
    offset_ = start;
  }
  for (; known_.column > position.column; --known_.column) {
    for (--offset_; offset_ > start && continuesCharacter(text_[offset_]);) --offset_;
  }
  const std::size_t end = start + content->size();
  for (; known_.column < position.column; ++known_.column) {
    if (offset_ >= end) return std::nullopt;
    for (++offset_; offset_ < end && continuesCharacter(text_[offset_]);) ++offset_;
  }
  return offset_;
}

}  // namespace driver_feature::host

#include "host/editor/text_lines.h"

#include <algorithm>

namespace driver_feature::editor {

namespace {

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Characters beyond the basic plane take four bytes, and two units.
long unitsOf(char firstByte) {
  return static_cast<unsigned char>(firstByte) >= 0xF0U ? 2 : 1;
}

constexpr std::size_t kBlock = 256;

long countUnits(std::string_view text) {
  long units = 0;
  for (const char byte : text) {
    if (!continuesCharacter(byte)) units += unitsOf(byte);
  }
  return units;
}

}  // namespace

TextLines::TextLines(std::string_view utf8) : text_(utf8), starts_{0}, units_{0} {
  for (std::size_t at = text_.find_first_of("\r\n"); at != std::string_view::npos;
       at = text_.find_first_of("\r\n", at)) {
    at += text_.substr(at).starts_with("\r\n") ? 2 : 1;
    starts_.push_back(at);
  }
  for (std::size_t at = 0; at < text_.size(); at += kBlock) {
    units_.push_back(units_.back() + countUnits(text_.substr(at, kBlock)));
  }
}

long TextLines::unitsBefore(std::size_t offset) const {
  const std::size_t block = offset / kBlock;
  return units_[block] + countUnits(text_.substr(block * kBlock, offset - block * kBlock));
}

std::size_t TextLines::endOf(std::size_t line) const {
  if (line + 1 == starts_.size()) return text_.size();
  std::size_t end = starts_[line + 1] - 1;
  if (end > starts_[line] && text_[end] == '\n' && text_[end - 1] == '\r') --end;
  return end;
}

EditorPlace TextLines::placeOf(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  const auto next = std::upper_bound(starts_.begin(), starts_.end(), offset);
  const auto line = static_cast<std::size_t>(next - starts_.begin()) - 1;
  offset = std::min(offset, endOf(line));
  while (offset < text_.size() && offset > starts_[line] && continuesCharacter(text_[offset])) {
    --offset;
  }
  return {static_cast<long>(line), unitsBefore(offset) - unitsBefore(starts_[line])};
}

std::size_t TextLines::offsetOf(EditorPlace place) const {
  if (place.line < 0) return 0;
  const auto line = static_cast<std::size_t>(place.line);
  if (line >= starts_.size()) return text_.size();
  const std::size_t end = endOf(line);
  std::size_t offset = starts_[line];
  long units = 0;
  while (offset < end) {
    units += unitsOf(text_[offset]);
    if (units > place.character) break;
    for (++offset; offset < end && continuesCharacter(text_[offset]);) ++offset;
  }
  return offset;
}

}  // namespace driver_feature::editor

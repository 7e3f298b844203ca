#include "host/check/excerpt.h"

#include <algorithm>
#include <string_view>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

constexpr std::size_t kLongestExcerpt = 96;  // Characters of a long line.
constexpr std::size_t kBefore = 64;          // Of them, those before the caret.
constexpr std::size_t kLeastWidth = 5;

// The text as a terminal can show it, each character with a width of its own.
std::string shown(std::string_view text) {
  std::string result;
  for (const std::string_view character : host::splitCharacters(text)) {
    if (character == "\t") {
      result += ' ';
    } else {
      result += host::printable(character) == character ? character : "?";
    }
  }
  return result;
}

// A part of a line around a byte of it.
struct Window {
  std::size_t begin = 0;
  std::size_t end = 0;
};

bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

// Only what is near is looked at: a file may be one line of megabytes.
Window windowOf(std::string_view line, std::size_t at) {
  Window window{at, at};
  std::size_t before = 0;
  for (; window.begin > 0 && before < kLongestExcerpt;
       before += beginsCharacter(line[window.begin])) {
    --window.begin;
  }
  std::size_t after = 0;
  for (; window.end < line.size(); ++window.end) {
    if (beginsCharacter(line[window.end]) && ++after > kLongestExcerpt) break;
  }
  after = std::min(after, kLongestExcerpt);
  if (before + after <= kLongestExcerpt && window.begin == 0 && window.end == line.size())
    return window;
  const std::size_t wantedBefore =
      std::max(kBefore, kLongestExcerpt - std::min(kLongestExcerpt, after));
  for (; before > wantedBefore; --before) {
    for (++window.begin; !beginsCharacter(line[window.begin]);) ++window.begin;
  }
  for (; after > kLongestExcerpt - before; --after) {
    for (--window.end; !beginsCharacter(line[window.end]);) --window.end;
  }
  return window;
}

std::string padded(const std::string& text) {
  return std::string(kLeastWidth - std::min(kLeastWidth, text.size()), ' ') + text;
}

}  // namespace

std::string excerptOf(const host::SourceText& source, host::Position position,
                      const std::string& caret) {
  const auto line = source.line(position.line);
  if (!line || position.column < 1) return "";
  const std::size_t start = source.startOf(position.line);
  // A place may be just after the last character.
  const std::size_t at = source.offsetOf(position).value_or(start + line->size()) - start;
  const Window window = windowOf(*line, at);
  const std::string dots = window.begin > 0 ? "..." : "";
  const std::string before = shown(line->substr(window.begin, at - window.begin));
  const std::string after = shown(line->substr(at, window.end - at));
  const std::string number = padded(std::to_string(position.line));
  return number + " | " + dots + before + after + (window.end < line->size() ? "..." : "") + "\n" +
         std::string(number.size(), ' ') + " | " +
         std::string(dots.size() + host::displayWidth(before), ' ') + caret + "\n";
}

}  // namespace driver_feature::check

#include "programs/filter/structure_comment.h"

#include <charconv>

namespace driver_feature::filter {

namespace {

constexpr std::string_view kCommentBlanks = " \t\f";

std::string_view trimmedFront(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kCommentBlanks);
  return first == std::string_view::npos ? "" : text.substr(first);
}

std::string_view takeWord(std::string_view& rest) {
  rest = trimmedFront(rest);
  const std::string_view word = rest.substr(0, rest.find_first_of(kCommentBlanks));
  rest.remove_prefix(word.size());
  return word;
}

}  // namespace

std::string_view keywordOf(std::string_view line) {
  if (!line.starts_with("%%")) return "";
  return line.substr(2, line.find_first_of(": \t", 2) - 2);
}

bool isHeaderComment(std::string_view line, std::string_view keyword) {
  if (keyword.starts_with("Begin") || keyword.starts_with("End")) return false;
  if (keyword == "Page" || keyword == "Trailer" || keyword == "EOF") return false;
  return line.size() > 1 && line[0] == '%' && line[1] != ' ' && line[1] != '\t';
}

bool isCommentOrBlank(std::string_view line) {
  const std::string_view text = trimmedFront(line);
  return text.empty() || text.front() == '%';
}

DataExtent dataExtent(std::string_view line) {
  DataExtent extent;
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return extent;
  std::string_view rest = line.substr(colon + 1);
  const std::string_view number = takeWord(rest);
  const auto read = std::from_chars(number.data(), number.data() + number.size(), extent.count);
  if (read.ec != std::errc() || read.ptr != number.data() + number.size()) extent.count = 0;
  takeWord(rest);  // The kind of data.
  extent.isLines = takeWord(rest) == "Lines";
  return extent;
}

}  // namespace driver_feature::filter

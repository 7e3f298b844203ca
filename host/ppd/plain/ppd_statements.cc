#include "host/ppd/plain/ppd_statements.h"

namespace driver_feature::ppd {

namespace {

constexpr std::string_view kLineEnds = "\r\n";

}  // namespace

std::string_view takeLine(std::string_view& text) {
  std::size_t end = text.find_first_of(kLineEnds);
  if (end == std::string_view::npos) end = text.size();
  if (text.substr(end).starts_with("\r\n")) ++end;
  const std::string_view line = text.substr(0, end + 1);
  text.remove_prefix(line.size());
  return line;
}

std::string_view takeStatement(std::string_view& text) {
  const std::string_view whole = text;
  bool isInValue = false;
  bool isOpen = false;
  const bool isComment = text.starts_with("*%");
  do {
    for (const char c : takeLine(text)) {
      isInValue = isInValue || c == ':';
      // Any mark after the colon counts, as in libcups.
      if (c == '"' && isInValue && !isComment) isOpen = !isOpen;
    }
  } while (isOpen && !text.empty());
  return whole.substr(0, whole.size() - text.size());
}

std::string_view statementKeyword(std::string_view statement) {
  if (!statement.starts_with('*') || statement.starts_with("*%")) return "";
  statement.remove_prefix(1);
  return statement.substr(0, statement.find_first_of(": \t\v\f\r\n"));
}

std::string_view lineEndOf(std::string_view line) {
  const std::size_t last = line.find_last_not_of(kLineEnds);
  return line.substr(last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace driver_feature::ppd

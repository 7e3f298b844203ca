#include "filter/pjl_line.h"

#include <string>

namespace driver_feature {

namespace {

constexpr std::string_view kExit = "\x1b%-12345X";
constexpr char kEndOfFile = '\x04';

std::string capitals(std::string_view text) {
  std::string result;
  for (const char c : text) result += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return result;
}

}  // namespace

std::string_view withoutExits(std::string_view line) {
  while (line.starts_with(kEndOfFile) || line.starts_with(kExit)) {
    line.remove_prefix(line.front() == kEndOfFile ? 1 : kExit.size());
  }
  return line;
}

bool beginsWithExit(std::string_view line) {
  if (line.starts_with(kEndOfFile)) line.remove_prefix(1);
  return line.starts_with(kExit);
}

bool entersOtherLanguage(std::string_view line) {
  const std::string command = capitals(line);
  return command.find("ENTER LANGUAGE") != std::string::npos &&
         command.find("POSTSCRIPT") == std::string::npos;
}

}  // namespace driver_feature

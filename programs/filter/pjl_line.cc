#include "programs/filter/pjl_line.h"

#include <algorithm>
#include <string>

namespace driver_feature::filter {

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

std::string enteredLanguage(std::string_view line) {
  std::string command = capitals(line);
  for (const std::string_view word : {"@PJL", "ENTER", "LANGUAGE"}) {
    if (!command.starts_with(word)) return "";
    command.erase(0, std::min(command.find_first_not_of(" \t", word.size()), command.size()));
  }
  return command.substr(std::min(command.find_first_not_of("= \t"), command.size()));
}

bool entersOtherLanguage(std::string_view line) {
  const std::string language = enteredLanguage(line);
  return !language.empty() && language.find("POSTSCRIPT") == std::string::npos;
}

}  // namespace driver_feature::filter

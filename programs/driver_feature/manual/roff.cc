#include "programs/driver_feature/manual/roff.h"

#include <map>
#include <sstream>

namespace driver_feature::cli {

std::string roffText(const std::string& text) {
  static const std::map<char, std::string> kEscapes = {
      {'\\', "\\e"},  {'-', "\\-"},   {'\'', "\\(aq"}, {'"', "\\(dq"},
      {'^', "\\(ha"}, {'~', "\\(ti"}, {'`', "\\(ga"}};
  std::string result;
  bool lineBegins = true;
  for (const char character : text) {
    if (lineBegins && character == '.') result += "\\&";
    const auto escape = kEscapes.find(character);
    result += escape != kEscapes.end() ? escape->second : std::string(1, character);
    lineBegins = character == '\n';
  }
  return result;
}

std::string roffArgument(const std::string& text) {
  return "\"" + roffText(text) + "\"";
}

std::string roffParagraphs(const std::string& text) {
  std::string result = ".PP\n";
  std::istringstream lines(text);
  bool exact = false;
  for (std::string line; std::getline(lines, line);) {
    const bool isExact = line.starts_with("  ");
    if (isExact != exact) result += isExact ? ".RS 4\n.nf\n" : ".fi\n.RE\n";
    exact = isExact;
    result += line.empty() ? ".PP\n" : roffText(isExact ? line.substr(2) : line) + "\n";
  }
  if (exact) result += ".fi\n.RE\n";
  return result;
}

}  // namespace driver_feature::cli

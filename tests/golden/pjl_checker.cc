#include "golden/pjl_checker.h"

#include <regex>
#include <set>
#include <vector>

namespace {

const std::string kExitSequence = "\x1B%-12345X";

std::string inLine(std::size_t index, const std::string& fault) {
  return "line " + std::to_string(index + 1) + ": " + fault;
}

// Splits at CR LF. Whatever follows the last one is the rest.
std::vector<std::string> splitLines(const std::string& bytes, std::string& rest) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end = bytes.find("\r\n"); end != std::string::npos;
       end = bytes.find("\r\n", begin)) {
    lines.push_back(bytes.substr(begin, end - begin));
    begin = end + 2;
  }
  rest = bytes.substr(begin);
  return lines;
}

std::string findCharacterFault(const std::vector<std::string>& lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (const char character : lines[i]) {
      if (character < ' ' || character > '~') return inLine(i, "a byte is not printable ASCII");
    }
  }
  return "";
}

std::string findAssignmentFault(const std::vector<std::string>& lines) {
  static const std::regex kAssignment(
      "@PJL SET ([A-Z][A-Z0-9]*) = ([A-Z0-9]+|-?[0-9]+(\\.[0-9]+)?|\"[^\"]*\")");
  std::set<std::string> variables;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
    std::smatch parts;
    if (!std::regex_match(lines[i], parts, kAssignment)) return inLine(i, "no assignment");
    if (!variables.insert(parts[1]).second) return inLine(i, "a variable is set again");
  }
  return "";
}

}  // namespace

std::string findPjlFault(const std::string& bytes) {
  if (!bytes.starts_with(kExitSequence)) return "no universal exit sequence at the beginning";
  std::string rest;
  const auto lines = splitLines(bytes.substr(kExitSequence.size()), rest);
  if (!rest.empty()) return "the last line is not ended by CR LF";
  if (std::string fault = findCharacterFault(lines); !fault.empty()) return fault;
  static const std::regex kJob("@PJL JOB NAME = \"[^\"]*\"");
  if (lines.empty() || !std::regex_match(lines.front(), kJob)) return inLine(0, "no JOB command");
  static const std::regex kEnter("@PJL ENTER LANGUAGE = [A-Z0-9]+");
  if (!std::regex_match(lines.back(), kEnter)) return "no ENTER command in the last line";
  return findAssignmentFault(lines);
}

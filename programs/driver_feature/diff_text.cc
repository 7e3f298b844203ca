#include "programs/driver_feature/diff_text.h"

#include <algorithm>

namespace driver_feature::cli {

namespace {

std::string composeLine(const host::DiffLine& line, bool coloured) {
  const std::string text = line.mark + line.text;
  const char* colour = line.mark == '-' ? "31" : line.mark == '+' ? "32" : "36";
  if (!coloured || line.mark == ' ') return text + "\n";
  return "\033[" + std::string(colour) + "m" + text + "\033[0m\n";
}

}  // namespace

bool hasChange(const std::vector<host::DiffLine>& lines) {
  return std::ranges::any_of(lines, [](const host::DiffLine& line) { return line.mark != ' '; });
}

std::string composeDiff(const std::string& first, const std::string& second,
                        const std::vector<host::DiffLine>& lines, bool coloured) {
  std::string text = composeLine({'-', "-- " + first}, coloured);
  text += composeLine({'+', "++ " + second}, coloured);
  for (const host::DiffLine& line : lines) text += composeLine(line, coloured);
  return text;
}

}  // namespace driver_feature::cli

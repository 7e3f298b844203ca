#include "host/ppd/plain/job_language.h"

#include <algorithm>
#include <cstddef>

namespace driver_feature::ppd {

namespace {

constexpr std::string_view kPjl = "\x1b%-12345X@";
constexpr std::string_view kPjlStart = "\x1b%-12345X@PJL\n";
constexpr std::size_t kLongestName = 64;
constexpr std::size_t kLongestDisplay = 32;

// The hexadecimal digit at a place; -1 for another character and past the end.
int digitOf(std::string_view text, std::size_t at) {
  const char c = at < text.size() ? text[at] : '\0';
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Without its @PJL JOB lines: the job gets one of its own.
std::string withoutJobLines(std::string_view lines) {
  std::string result;
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n') + 1);
    const std::string_view whole = line.empty() ? lines : line;
    if (!whole.starts_with("@PJL JOB")) result += whole;
    lines.remove_prefix(whole.size());
  }
  return result;
}

}  // namespace

std::string decodedValue(std::string_view value) {
  std::string decoded;
  std::size_t at = 0;
  while (at < value.size()) {
    if (value[at] != '<' || digitOf(value, at + 1) < 0) {
      decoded += value[at++];
      continue;
    }
    for (++at; digitOf(value, at + 1) >= 0 && digitOf(value, at) >= 0; at += 2) {
      decoded += static_cast<char>(digitOf(value, at) * 16 + digitOf(value, at + 1));
    }
    at = std::min(value.find('>', at), value.size() - 1) + 1;
  }
  return decoded;
}

std::string jobBeginOf(std::string_view begin, int job, const std::string& user,
                       const std::string& title) {
  if (!begin.starts_with(kPjl)) return std::string(begin);
  const std::string name = title.substr(title.rfind('/') + 1).substr(0, kLongestName);
  std::string display = std::to_string(job);
  display.append(" ").append(user).append(" ").append(name);
  std::string text(kPjlStart);
  text += withoutJobLines(begin.substr(kPjl.size() - 1));
  text.append("@PJL JOB NAME = \"").append(name).append("\" DISPLAY = \"");
  text.append(display, 0, kLongestDisplay).append("\"\n@PJL SET USERNAME = \"");
  text.append(user, 0, kLongestName).append("\"\n");
  return text;
}

std::string jobEndOf(std::string_view end) {
  if (!end.starts_with(kPjl)) return std::string(end);
  std::string text(kPjlStart);
  text += "@PJL RDYMSG DISPLAY = \"\"\n";
  text += end.substr(kPjl.size() - 1);
  return text;
}

}  // namespace driver_feature::ppd

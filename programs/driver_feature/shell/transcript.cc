#include "programs/driver_feature/shell/transcript.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kRed = "\x1B[31m";
constexpr const char* kYellow = "\x1B[33m";
constexpr const char* kGreen = "\x1B[32m";
constexpr const char* kFaint = "\x1B[2m";
constexpr const char* kPlain = "\x1B[0m";

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

void writeError(const std::string& text) {
  // What a routine has printed before comes before.
  std::cout.flush();
  std::fflush(stdout);
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

Transcript::Transcript()
    : colours_(::isatty(STDERR_FILENO) != 0 && environment("NO_COLOR").empty() &&
               environment("TERM") != "dumb"),
      answersToTerminal_(::isatty(STDOUT_FILENO) != 0) {}

void Transcript::event(EventKind kind, const std::string& text) const {
  writeEvent(kind == EventKind::kChange ? kGreen : kFaint,
             (kind == EventKind::kChange ? "changed " : "") + text);
}

void Transcript::note(const std::string& text) const {
  writeEvent(kYellow, text);
}

void Transcript::logLine(const std::string& line) const {
  const bool grave = line.starts_with("error:") || line.starts_with("misuse:");
  writeEvent(grave ? kYellow : kFaint, line);
}

void Transcript::refuse(const std::string& text) const {
  const std::string shown = host::printable(text);
  writeError((colours_ ? kRed + shown + kPlain : shown) + "\n");
}

host::Result<> Transcript::answer(const std::string& text) {
  return text.empty() ? host::Result<>() : host::writeToStandardOutput(text);
}

std::string Transcript::shownOutput(const std::string& bytes) const {
  if (!answersToTerminal_) return bytes;
  std::string shown;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    shown += host::printable(line) + "\n";
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  }
  return shown;
}

void Transcript::writeEvent(const char* colour, const std::string& text) const {
  const std::string shown = host::printable(text);
  writeError("  " + (colours_ ? colour + shown + kPlain : shown) + "\n");
}

}  // namespace driver_feature::cli

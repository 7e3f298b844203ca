#include "programs/driver_feature/commands/progress.h"

#include <unistd.h>

#include <cstdio>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::size_t kColumns = 79;

// The end of a text that fits on the line.
std::string lastColumns(const std::string& text, std::size_t columns) {
  const auto characters = host::splitCharacters(text);
  if (characters.size() <= columns) return text;
  std::string end = "...";
  for (std::size_t i = characters.size() - (columns - end.size()); i < characters.size(); ++i) {
    end += characters[i];
  }
  return end;
}

void write(const std::string& text) {
  std::fputs(text.c_str(), stderr);
  std::fflush(stderr);
}

}  // namespace

Progress::Progress(std::size_t total) : total_(total), isTerminal_(::isatty(STDERR_FILENO) != 0) {}

void Progress::next(const std::string& name) {
  ++number_;
  if (!isTerminal_) return;
  const std::string head = std::to_string(number_) + " of " + std::to_string(total_) + ": ";
  clear();
  write(head + lastColumns(host::printable(name), kColumns - head.size()));
  isShown_ = true;
}

void Progress::clear() {
  if (!isShown_) return;
  write("\r\x1B[K");
  isShown_ = false;
}

}  // namespace driver_feature::cli

#include "filter/messages.h"

#include <unistd.h>

#include <cerrno>
#include <string>

#include "host/text.h"

namespace driver_feature {

namespace {

const char* wordOf(Message kind) {
  switch (kind) {
    case Message::kDebug:
      return "DEBUG: ";
    case Message::kInfo:
      return "INFO: ";
    case Message::kWarning:
      return "WARNING: ";
    case Message::kError:
      break;
  }
  return "ERROR: ";
}

// In one piece, so that lines of other filters do not get between.
void writeLine(const std::string& line) {
  std::string_view rest = line;
  while (!rest.empty()) {
    const ssize_t written = ::write(STDERR_FILENO, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;  // There is nobody left to tell.
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

void tell(Message kind, std::string_view text) {
  writeLine(wordOf(kind) + printable(text) + "\n");
}

void tellPage(long number, long copies) {
  writeLine("PAGE: " + std::to_string(number) + " " + std::to_string(copies) + "\n");
}

}  // namespace driver_feature

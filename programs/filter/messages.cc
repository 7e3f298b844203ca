#include "programs/filter/messages.h"

#include <unistd.h>

#include <string>

#include "host/base/descriptor.h"
#include "host/base/text.h"

namespace driver_feature::filter {

namespace {

const char* wordOf(Message kind) {
  switch (kind) {
    case Message::kDebug:
      return "DEBUG: ";
    case Message::kWarning:
      return "WARNING: ";
    case Message::kError:
      break;
  }
  return "ERROR: ";
}

// A print scheduler takes 2047 bytes for a line, and what follows them for
// another message, which whoever prints could then write.
constexpr std::size_t kLongestText = 1500;

std::string shortened(std::string text) {
  if (text.size() <= kLongestText) return text;
  std::size_t end = kLongestText;
  // Not within a character of several bytes.
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  text.resize(end);
  return text + " ...";
}

// In one piece, so that lines of other filters do not get between.
void writeLine(const std::string& line) {
  host::writeAll(STDERR_FILENO, line);
}

}  // namespace

void writeMessage(Message kind, std::string_view text) {
  writeLine(wordOf(kind) + shortened(host::printable(text)) + "\n");
}

void writePageMessage(long number, long copies) {
  writeLine("PAGE: " + std::to_string(number) + " " + std::to_string(copies) + "\n");
}

}  // namespace driver_feature::filter

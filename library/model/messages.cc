#include "model/messages.h"

#include <string>

#include "Log.h"

namespace driver_feature {

void logFixed(Level level, const char* text) {
  LogMessage(static_cast<int>(level), kLogCategory, text);
}

void logComposedText(Level level, std::string_view text,
                     std::initializer_list<std::string_view> inserts) {
  std::size_t size = text.size();
  for (const std::string_view insert : inserts) size += insert.size();
  std::string line;
  line.reserve(size);
  for (const std::string_view insert : inserts) {
    const std::size_t at = text.find("{}");
    line.append(text.substr(0, at)).append(insert);
    text.remove_prefix(at + 2);
  }
  line.append(text);
  LogMessageBuffer = line;
  LogStringMessage(static_cast<int>(level), kLogCategory, LogMessageBuffer);
}

}  // namespace driver_feature

#include "Log.h"

#include <cstdio>
#include <cstring>
#include <string>

UnicodeString LogMessageBuffer;

namespace {

using Handler = void (*)(int, const char*, const char*, std::size_t, void*);

void writeToStandardError(int level, const char* category, const char* text, std::size_t length,
                          void* /*context*/) {
  const std::string line =
      std::to_string(level) + ' ' + category + ": " + std::string(text, length) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

Handler logHandler = writeToStandardError;
void* logContext = nullptr;

void write(int level, const char* category, const char* text, std::size_t length) {
  logHandler(level, category != nullptr ? category : "", text, length, logContext);
}

}  // namespace

void LogMessage(int level, const char* category, const char* text) {
  if (text == nullptr) text = "";
  write(level, category, text, std::strlen(text));
}

void LogStringMessage(int level, const char* category, const UnicodeString& text) {
  write(level, category, text.utf8().c_str(), text.utf8().size());
}

void SetLogHandler(Handler handler, void* context) {
  logHandler = handler != nullptr ? handler : writeToStandardError;
  logContext = context;
}

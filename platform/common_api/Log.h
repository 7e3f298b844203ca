// The platform's log. Levels: 1 error, 2 misuse or a lost value, 3 warning,
// 4 information.
#ifndef PLATFORM_COMMON_API_LOG_H_
#define PLATFORM_COMMON_API_LOG_H_

#include <cstddef>

#include "UnicodeString.h"

// Write one line. A null category or text counts as empty.
void LogMessage(int level, const char* category, const char* text);
void LogStringMessage(int level, const char* category, const UnicodeString& text);

// The one text in which composed messages are built before they are logged.
extern UnicodeString LogMessageBuffer;

// For host programs and tests of the development edition only: every line
// goes to `handler` with `context` from now on. `text` holds `length` bytes,
// NUL characters included, and is terminated. A null handler restores the
// default, which writes "<level> <category>: <text>" to standard error.
void SetLogHandler(void (*handler)(int level, const char* category, const char* text,
                                   std::size_t length, void* context),
                   void* context);

#endif  // PLATFORM_COMMON_API_LOG_H_

// Messages to the print scheduler: lines on standard error, each beginning with a
// word for its kind.
#ifndef PROGRAMS_FILTER_MESSAGES_H_
#define PROGRAMS_FILTER_MESSAGES_H_

#include <string_view>

namespace driver_feature::filter {

enum class Message {
  kDebug,    // For the log only.
  kWarning,  // The job is printed, but not quite as it was asked for.
  kError,    // Why the job fails.
};

// Writes "ERROR: TEXT" or the like and a line end. Control characters of the
// text are spelled out, and a long one is cut, so that it stays one line and
// begins no other message.
void writeMessage(Message kind, std::string_view text);

// Writes "PAGE: NUMBER COPIES": a page has begun.
void writePageMessage(long number, long copies);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_MESSAGES_H_

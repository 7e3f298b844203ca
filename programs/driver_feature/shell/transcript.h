// Where the shell writes: results to standard output, and everything that
// happens on the way, as indented lines, to standard error. Both are written
// at once, so that they keep their order where they meet.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_TRANSCRIPT_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_TRANSCRIPT_H_

#include <string>

#include "host/base/output_file.h"
#include "programs/driver_feature/shell/events.h"

namespace driver_feature::cli {

class Transcript {
 public:
  // Looks at the streams: colours go to a terminal only, and not when NO_COLOR
  // is set to something or TERM is "dumb".
  Transcript();

  void event(EventKind kind, const std::string& text) const;
  void note(const std::string& text) const;     // Anything else that matters.
  void logLine(const std::string& line) const;  // "warning: TEXT".

  // A refusal, for a person at a terminal.
  void refuse(const std::string& text) const;

  // Writes a result unchanged.
  static host::Result<> answer(const std::string& text);

  // Output for a printer: as it is, but spelled out line by line when standard
  // output is a terminal, which would obey it.
  std::string shownOutput(const std::string& bytes) const;

 private:
  void writeEvent(const char* colour, const std::string& text) const;

  bool colours_;
  bool answersToTerminal_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_TRANSCRIPT_H_

// A check of a text that is being typed, in a process of its own: what a
// description names is loaded there anew, may hang, and ends nothing else.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_TEXT_CHECK_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_TEXT_CHECK_H_

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "host/base/child_process.h"
#include "host/base/result.h"
#include "host/check/findings.h"
#include "host/session/session.h"

namespace driver_feature::cli {

struct TextReport {
  check::Findings findings;           // With places and fixes in the text.
  std::vector<std::string> routines;  // The names of those that exist.
};

class TextCheck {
 public:
  static constexpr std::chrono::seconds kLongest{60};

  // Starts the check. `path` is for messages. Problem: no process can be made.
  static host::Result<TextCheck> start(const std::string& path, const std::string& text,
                                       const host::SessionRequest& general);

  // To wait for.
  int pipe() const { return child_.pipe(); }
  std::chrono::milliseconds timeLeft() const;

  // Reads what is there to read. False once there will not be more.
  bool read();

  // Ends the check, and returns what it has found. Problems: the library or the
  // routines cannot be loaded; the check has not come to its end.
  host::Result<TextReport> finish();

 private:
  explicit TextCheck(host::ChildProcess child)
      : child_(std::move(child)), end_(std::chrono::steady_clock::now() + kLongest) {}

  host::ChildProcess child_;
  std::chrono::steady_clock::time_point end_;
  std::string output_;
};

// The text without the name of an encoding in its declaration, which is that of
// the file: what comes from an editor is UTF-8. All places stay as they are.
std::string withoutEncoding(std::string text);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_TEXT_CHECK_H_

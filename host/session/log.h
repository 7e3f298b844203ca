// Reports the library's log lines.
#ifndef HOST_SESSION_LOG_H_
#define HOST_SESSION_LOG_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace driver_feature::host {

enum class LogDetail {
  kErrors,  // Level 1.
  kUsual,   // Levels 1 and 2, without the notice that an optional setting is absent.
  kAll,     // Every line.
};

// Receives a line for people. The program decides what to do with it.
using LineSink = std::function<void(const std::string& line)>;

// "error", "misuse", "warning" or "info", for the levels 1 to 4 of the log.
const char* wordOfLevel(int level);

// While it lives, it receives the platform's log: every line that the detail
// asks for is reported as "error: TEXT", with "misuse", "warning" or "info" for
// levels 2 to 4. A line that the library itself writes to standard error before
// it ends the process is left to it.
//
// One at a time; afterwards the platform's own handler is restored.
class LogPrinter {
 public:
  LogPrinter(LogDetail detail, LineSink report);
  ~LogPrinter();
  LogPrinter(const LogPrinter&) = delete;
  LogPrinter& operator=(const LogPrinter&) = delete;

  // From now on lines are kept, until it is known whether they matter: when a
  // setting is refused, only the refusal is reported. An error reports what is
  // kept, and so does the end of the process. Does nothing when every line is
  // to be reported.
  void hold();

  // Reports what is kept; later lines are reported at once.
  void release();

  // Drops what is kept; later lines are reported at once.
  void discard();

  // The last error, a line of level 1, whether it was reported or not; empty
  // before there is one.
  const std::string& lastError() const { return lastError_; }

  // Which lines are reported from now on.
  LogDetail detail() const { return detail_; }
  void setDetail(LogDetail detail) { detail_ = detail; }

  // Where lines are reported from now on.
  void setReport(LineSink report) { report_ = std::move(report); }

  // From now on every line is passed on here, too, whether it is reported or
  // not. An empty one ends that.
  using Watcher = std::function<void(int level, std::string_view text)>;
  void watch(Watcher watcher) { watcher_ = std::move(watcher); }

  // Sends log lines to the current printer, or to the platform's own handler
  // when there is none.
  static void takeOver();

 private:
  static void handle(int level, const char* category, const char* text, std::size_t length,
                     void* context);
  static void releaseAtExit();
  void releaseQuietly() noexcept;
  void reportHeld();
  void take(int level, std::string_view text);
  bool isShown(int level, std::string_view text) const;

  LogDetail detail_;
  LineSink report_;
  Watcher watcher_;
  bool holding_ = false;
  std::string lastError_;
  std::vector<std::string> held_;
};

// While it lives, the lines of a printer are passed on to a watcher, too.
class LogWatch {
 public:
  LogWatch(LogPrinter& printer, LogPrinter::Watcher watcher) : printer_(printer) {
    printer_.watch(std::move(watcher));
  }
  ~LogWatch() { printer_.watch({}); }
  LogWatch(const LogWatch&) = delete;
  LogWatch& operator=(const LogWatch&) = delete;

 private:
  LogPrinter& printer_;
};

// While it lives, log lines are dropped. Afterwards they go where
// LogPrinter::takeOver() sends them. Not to be nested.
class LogSilence {
 public:
  LogSilence();
  ~LogSilence();
  LogSilence(const LogSilence&) = delete;
  LogSilence& operator=(const LogSilence&) = delete;
};

}  // namespace driver_feature::host

#endif  // HOST_SESSION_LOG_H_

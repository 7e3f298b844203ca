// Signals that come while a line is being written at the terminal.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_TERMINAL_SIGNALS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_TERMINAL_SIGNALS_H_

#include <csignal>

namespace driver_feature::cli {

// While it lives, catches the signals that end or stop the program, Ctrl-C's and
// that of a resized window. One at a time. A signal that the
// program ignores stays ignored.
class TerminalSignals {
 public:
  TerminalSignals();
  ~TerminalSignals();
  TerminalSignals(const TerminalSignals&) = delete;
  TerminalSignals& operator=(const TerminalSignals&) = delete;

  // Waits for input or a signal. Returns the signal; 0 when there is input, or an
  // end of it.
  int waitForInput(int descriptor) const;

  // Gives the signal its usual effect. Returns when the program goes on.
  void passOn(int signal);

 private:
  static constexpr int kSignals[] = {SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGTSTP, SIGWINCH};

  static void onSignal(int signal);
  static int takeCaught();
  void catchAll();
  void release() const;

  static volatile std::sig_atomic_t caught_[sizeof(kSignals) / sizeof(int)];
  struct sigaction before_[sizeof(kSignals) / sizeof(int)] = {};
  sigset_t maskBefore_ = {};
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_TERMINAL_SIGNALS_H_

// Signals for a program whose work is done by a copy of its process.
#ifndef HOST_BASE_SIGNAL_RELAY_H_
#define HOST_BASE_SIGNAL_RELAY_H_

#include <sys/types.h>

#include <csignal>

namespace driver_feature::host {

// While it lives, the signals that ask a program to end (SIGHUP, SIGINT, SIGQUIT,
// SIGTERM) are the copy's: those that another process sends are passed on, and
// those of the terminal have reached the copy by themselves. A signal that the
// program ignores stays ignored. One at a time.
class SignalRelay {
 public:
  // Keeps the signals waiting until begin(): none may be lost in between.
  SignalRelay();
  ~SignalRelay();
  SignalRelay(const SignalRelay&) = delete;
  SignalRelay& operator=(const SignalRelay&) = delete;

  // Called in the copy: the signals have their usual effect there.
  void leave() const;

  // Called in this process: passes the signals on to `copy` from now on.
  void begin(pid_t copy);

  // Called when the copy has ended with the status, as waitpid() gives it. If one
  // of the signals has ended it, this process gets the same.
  void end(int status);

 private:
  static constexpr int kSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

  static void passOn(int signal, siginfo_t* information, void* context);
  void restore();

  static volatile pid_t copy_;
  bool begun_ = false;
  sigset_t maskBefore_ = {};
  struct sigaction before_[sizeof(kSignals) / sizeof(int)] = {};
};

}  // namespace driver_feature::host

#endif  // HOST_BASE_SIGNAL_RELAY_H_

#include "host/base/signal_relay.h"

#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace driver_feature::host {

volatile pid_t SignalRelay::copy_ = 0;

void SignalRelay::passOn(int signal, siginfo_t* information, void* /*context*/) {
  const int saved = errno;
  // Of the kernel's codes, which are above 0, is that of a terminal.
  if (information->si_code <= 0 && copy_ > 0) ::kill(copy_, signal);
  errno = saved;
}

SignalRelay::SignalRelay() {
  sigset_t all;
  ::sigemptyset(&all);
  for (const int signal : kSignals) ::sigaddset(&all, signal);
  ::sigprocmask(SIG_BLOCK, &all, &maskBefore_);
}

SignalRelay::~SignalRelay() {
  restore();
  ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
}

void SignalRelay::leave() const {
  ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
}

void SignalRelay::begin(pid_t copy) {
  copy_ = copy;
  begun_ = true;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_sigaction = &SignalRelay::passOn;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    ::sigaction(kSignals[i], &action, nullptr);
  }
  ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
}

void SignalRelay::end(int status) {
  restore();
  if (!WIFSIGNALED(status)) return;
  const int signal = WTERMSIG(status);
  if (std::find(std::begin(kSignals), std::end(kSignals), signal) == std::end(kSignals)) return;
  ::raise(signal);
}

void SignalRelay::restore() {
  if (!begun_) return;
  begun_ = false;
  copy_ = 0;
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], &before_[i], nullptr);
  }
}

}  // namespace driver_feature::host

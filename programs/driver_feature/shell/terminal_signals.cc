#include "programs/driver_feature/shell/terminal_signals.h"

#include <poll.h>

#include <cerrno>
#include <iterator>

namespace driver_feature::cli {

volatile std::sig_atomic_t TerminalSignals::caught_[];

void TerminalSignals::onSignal(int signal) {
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    if (kSignals[i] == signal) caught_[i] = 1;
  }
}

int TerminalSignals::takeCaught() {
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    if (caught_[i] == 0) continue;
    caught_[i] = 0;
    return kSignals[i];
  }
  return 0;
}

TerminalSignals::TerminalSignals() {
  catchAll();
}

TerminalSignals::~TerminalSignals() {
  release();
}

void TerminalSignals::catchAll() {
  sigset_t all;
  sigemptyset(&all);
  for (const int signal : kSignals) sigaddset(&all, signal);
  // Open in waitForInput() only: none comes between a look and the wait.
  ::sigprocmask(SIG_BLOCK, &all, &maskBefore_);
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    caught_[i] = 0;
    ::sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = &onSignal;
    ::sigaction(kSignals[i], &action, nullptr);
  }
}

void TerminalSignals::release() const {
  for (std::size_t i = 0; i < std::size(kSignals); ++i) {
    ::sigaction(kSignals[i], &before_[i], nullptr);
  }
  ::sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
}

int TerminalSignals::waitForInput(int descriptor) const {
  while (true) {
    if (const int signal = takeCaught()) return signal;
    pollfd input{descriptor, POLLIN, 0};
    if (::ppoll(&input, 1, nullptr, &maskBefore_) >= 0 || errno != EINTR) break;
  }
  return takeCaught();
}

void TerminalSignals::passOn(int signal) {
  ::raise(signal);
  release();
  catchAll();
}

}  // namespace driver_feature::cli

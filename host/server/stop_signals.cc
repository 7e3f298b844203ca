#include "host/server/stop_signals.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace driver_feature::host {

namespace {

int signalPipe[2] = {-1, -1};
pid_t signalledProcess = 0;

void noteSignal(int /*signal*/) {
  // A new process has the server's handler until it has its own.
  if (::getpid() != signalledProcess) ::_exit(EXIT_FAILURE);
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

}  // namespace

void stopBySignal(EventLoop& loop) {
  if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  loop.watch(signalPipe[0], POLLIN, [&loop](short) { loop.stop(); });
  signalledProcess = ::getpid();
  struct sigaction action {};
  action.sa_handler = noteSignal;
  ::sigaction(SIGTERM, &action, nullptr);
  ::sigaction(SIGINT, &action, nullptr);
}

}  // namespace driver_feature::host

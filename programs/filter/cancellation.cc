#include "programs/filter/cancellation.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace driver_feature::filter {

namespace {

// The signal makes this pipe readable, so that whoever waits wakes up, even if
// it comes just before the wait.
std::array<int, 2> alarmEnds{-1, -1};
volatile std::sig_atomic_t cancelled = 0;

void cancel(int /*signal*/) {
  const int saved = errno;
  cancelled = 1;
  const char byte = 0;
  // A full pipe is readable already.
  [[maybe_unused]] const ssize_t written = ::write(alarmEnds[1], &byte, 1);
  errno = saved;
}

bool waitFor(int descriptor, short events) {
  while (cancelled == 0) {
    std::array<pollfd, 2> waits{pollfd{descriptor, events, 0}, pollfd{alarmEnds[0], POLLIN, 0}};
    const int ready = ::poll(waits.data(), waits.size(), -1);
    if (ready == -1 && errno == EINTR) continue;
    if (cancelled == 0 && (ready == -1 || waits[0].revents != 0)) return true;
  }
  return false;
}

}  // namespace

bool catchCancellation() {
  if (::pipe2(alarmEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return false;
  struct sigaction action {};
  action.sa_handler = &cancel;
  ::sigemptyset(&action.sa_mask);
  return ::sigaction(SIGTERM, &action, nullptr) == 0;
}

bool isCancelled() {
  return cancelled != 0;
}

bool waitToRead(int descriptor) {
  return waitFor(descriptor, POLLIN);
}

bool waitToWrite(int descriptor) {
  return waitFor(descriptor, POLLOUT);
}

bool waitToWrite(int descriptor, int milliseconds) {
  pollfd wait{descriptor, POLLOUT, 0};
  int ready = 0;
  do {
    ready = ::poll(&wait, 1, milliseconds);
  } while (ready == -1 && errno == EINTR);
  return ready != 0;
}

}  // namespace driver_feature::filter

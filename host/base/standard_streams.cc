#include "host/base/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>

namespace driver_feature::host {

namespace {

void flushStandardOutput() {
  std::cout.flush();
  std::fflush(stdout);
}

}  // namespace

void prepareStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) != -1) continue;
    // The lowest free number is given out, which is this one. The direction is
    // the wrong one on purpose.
    ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

StandardOutputDiversion::StandardOutputDiversion() {
  flushStandardOutput();
  saved_ = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (saved_ != -1) ::dup2(STDERR_FILENO, STDOUT_FILENO);
}

StandardOutputDiversion::~StandardOutputDiversion() {
  if (saved_ == -1) return;
  flushStandardOutput();
  ::dup2(saved_, STDOUT_FILENO);
  ::close(saved_);
}

}  // namespace driver_feature::host

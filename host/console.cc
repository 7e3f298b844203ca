#include "host/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>

#include "host/text.h"

namespace driver_feature {

namespace {

std::string_view complaintStart = "driver-feature: ";

void flushStandardOutput() {
  std::cout.flush();
  std::fflush(stdout);
}

void writeToStandardError(std::string_view rest) {
  std::fflush(stderr);
  while (!rest.empty()) {
    const ssize_t written = ::write(STDERR_FILENO, rest.data(), rest.size());
    if (written <= 0) return;  // There is nobody left to tell.
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

void complain(std::string_view text) {
  writeToStandardError(std::string(complaintStart) + printable(text) + "\n");
}

void nameComplaints(std::string_view start) {
  complaintStart = start;
}

void complainOfMemory() {
  writeToStandardError(complaintStart);
  writeToStandardError("out of memory; end other programs and try again\n");
}

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

}  // namespace driver_feature

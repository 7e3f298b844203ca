#include "programs/driver_feature/shell/captured_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <iostream>

namespace driver_feature::cli {

CapturedOutput::CapturedOutput() : file_(std::tmpfile()) {
  if (file_ == nullptr) return;
  std::cout.flush();
  std::fflush(stdout);
  saved_ = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  whole_ = saved_ != -1 && ::dup2(::fileno(file_), STDOUT_FILENO) != -1;
}

CapturedOutput::~CapturedOutput() {
  restore();
  if (file_ != nullptr) std::fclose(file_);
}

bool CapturedOutput::end(std::string& text) {
  restore();
  if (!whole_) return false;
  std::rewind(file_);
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), file_)) {
    text.append(part.data(), count);
  }
  return std::ferror(file_) == 0;
}

void CapturedOutput::restore() {
  if (saved_ == -1) return;
  const bool printed = std::cout.flush().good() && std::fflush(stdout) == 0;
  whole_ = whole_ && printed;
  std::cout.clear();
  ::dup2(saved_, STDOUT_FILENO);
  ::close(saved_);
  saved_ = -1;
}

}  // namespace driver_feature::cli

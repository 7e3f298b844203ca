#include "programs/filter/job_source.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "programs/filter/cancellation.h"

namespace driver_feature::filter {

JobSource::JobSource(const std::string& file)
    : name_(file.empty() ? "standard input" : file),
      descriptor_(file.empty() ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC)),
      error_(descriptor_ == -1 ? errno : 0) {}

JobSource::~JobSource() {
  if (descriptor_ > STDIN_FILENO) ::close(descriptor_);
}

std::string_view JobSource::read(host::Result<>& result) {
  // Nobody waits for a file that could not be opened.
  while (descriptor_ != -1 && waitToRead(descriptor_)) {
    const ssize_t count = ::read(descriptor_, buffer_.data(), buffer_.size());
    if (count >= 0) return {buffer_.data(), static_cast<std::size_t>(count)};
    if (errno == EINTR || errno == EAGAIN) continue;
    error_ = errno;
    break;
  }
  if (error_ != 0) {
    result = fail(host::Problem::Kind::kUnreadable,
                  "the job cannot be read from " + name_ + ": " + std::strerror(error_));
  }
  return {};
}

}  // namespace driver_feature::filter

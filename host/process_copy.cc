#include "host/process_copy.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string_view>

#include "host/temporary_file.h"

namespace driver_feature {

namespace {

// The texts, each behind its length and a colon, and a full stop at the end:
// without it the answer is not whole.
std::string pack(const std::vector<std::string>& texts) {
  std::string packed;
  for (const std::string& text : texts) packed += std::to_string(text.size()) + ":" + text;
  return packed + ".";
}

std::optional<std::vector<std::string>> unpack(std::string_view packed) {
  std::vector<std::string> texts;
  while (!packed.empty() && packed != ".") {
    std::size_t size = 0;
    const auto read = std::from_chars(packed.data(), packed.data() + packed.size(), size);
    packed.remove_prefix(static_cast<std::size_t>(read.ptr - packed.data()));
    if (read.ec != std::errc() || !packed.starts_with(':') || packed.size() - 1 < size) {
      return std::nullopt;
    }
    texts.emplace_back(packed.substr(1, size));
    packed.remove_prefix(1 + size);
  }
  if (packed.empty()) return std::nullopt;
  return texts;
}

void mute() {
  const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nothing == -1) return;
  ::dup2(nothing, STDOUT_FILENO);
  ::dup2(nothing, STDERR_FILENO);
}

[[noreturn]] void answer(int descriptor, CopyStreams streams,
                         const std::function<std::vector<std::string>()>& work) {
  bool written = false;
  try {
    if (streams == CopyStreams::kMuted) mute();
    written = writeAll(descriptor, pack(work()));
    std::cout.flush();
    std::fflush(nullptr);
  } catch (const std::exception& error) {
    std::cerr << "driver-feature: " << error.what() << std::endl;
  } catch (...) {
    // A routine of the description threw it; the missing answer tells.
  }
  ::_exit(written ? 0 : 1);
}

std::string readAll(int descriptor) {
  std::string bytes;
  std::array<char, 65536> buffer;
  for (;;) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return bytes;
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

std::optional<std::vector<std::string>> runInCopy(
    CopyStreams streams, const std::function<std::vector<std::string>()>& work) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  // What waits in a buffer must not come out twice.
  std::cout.flush();
  std::fflush(nullptr);
  const pid_t self = ::getpid();
  const pid_t copy = ::fork();
  if (copy == 0) {
    endWithParent(self);
    ::close(ends[0]);
    answer(ends[1], streams, work);
  }
  ::close(ends[1]);
  const std::string packed = copy == -1 ? "" : readAll(ends[0]);
  ::close(ends[0]);
  while (copy != -1 && ::waitpid(copy, nullptr, 0) == -1 && errno == EINTR) {
  }
  return unpack(packed);
}

void endWithParent(pid_t parent) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // It may have ended before.
  if (::getppid() != parent) ::_exit(1);
}

}  // namespace driver_feature

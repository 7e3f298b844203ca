#include "host/page/pristine_copy.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "host/base/descriptor.h"
#include "host/base/frames.h"
#include "host/session/routine_calls.h"

namespace driver_feature::page {

namespace {

// A reply begins with this when the work has returned.
constexpr char kMade = '+';

int serve(int socket, const PristineCopy::Work& work) {
  std::string arrived;
  while (const auto question = host::nextFrame(socket, arrived)) {
    const auto texts = host::runInChild(host::ChildStreams::kDropped,
                                        [&] { return std::vector<std::string>{work(*question)}; });
    // Who has asked makes no difference to who writes the record.
    host::clearRoutineRecord();
    const std::string reply = texts ? kMade + texts->front() : std::string();
    if (!host::writeAll(socket, host::frame(reply))) break;
  }
  return 0;
}

}  // namespace

host::Result<PristineCopy> PristineCopy::start(int socket, const Work& work) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return host::fail(host::Problem::Kind::kNotLoaded,
                      std::string("no sockets can be made: ") + std::strerror(errno));
  }
  auto child = host::ChildProcess::start(host::ChildStreams::kDropped, [&](int) {
    ::close(ends[0]);
    if (socket != -1) ::close(socket);
    return serve(ends[1], work);
  });
  ::close(ends[1]);
  if (!child) {
    ::close(ends[0]);
    return failureOf(child);
  }
  return PristineCopy(std::move(*child), ends[0]);
}

PristineCopy::~PristineCopy() {
  if (socket_ != -1) ::close(socket_);
}

PristineCopy::PristineCopy(PristineCopy&& other) noexcept
    : child_(std::move(other.child_)),
      socket_(std::exchange(other.socket_, -1)),
      arrived_(std::move(other.arrived_)) {}

std::optional<std::string> PristineCopy::ask(const std::string& question) {
  if (!host::writeAll(socket_, host::frame(question))) return std::nullopt;
  auto reply = host::nextFrame(socket_, arrived_);
  if (!reply || !reply->starts_with(kMade)) return std::nullopt;
  return reply->substr(1);
}

}  // namespace driver_feature::page

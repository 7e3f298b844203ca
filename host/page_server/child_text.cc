#include "host/page_server/child_text.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "host/base/child_setting.h"

namespace driver_feature::page_server {

namespace {

using Milliseconds = host::EventLoop::Milliseconds;

constexpr std::size_t kMostText = 16 << 20;
// A process that has closed its pipe mostly ends at once.
constexpr int kMostLooksAtChild = 50;
constexpr Milliseconds kBetweenLooksAtChild{2};

}  // namespace

host::Result<std::unique_ptr<ChildText>> ChildText::start(host::EventLoop& loop,
                                                          Milliseconds longest,
                                                          const host::ChildProcess::Work& work,
                                                          Done done) {
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  auto child = host::ChildProcess::startGroup(nothing, [&work, nothing](int pipe) {
    ::dup2(nothing, STDIN_FILENO);
    return work(host::leaveServer(pipe));
  });
  if (nothing != -1) ::close(nothing);
  if (!child) return failureOf(child);
  std::unique_ptr<ChildText> made(new ChildText(loop, std::move(*child), std::move(done)));
  made->limit_ = loop.after(longest, [text = made.get()] {
    text->limit_.reset();
    text->finish(std::nullopt);
  });
  return made;
}

ChildText::ChildText(host::EventLoop& loop, host::ChildProcess child, Done done)
    : loop_(loop), child_(std::move(child)), done_(std::move(done)) {
  ::fcntl(child_.pipe(), F_SETFL, O_NONBLOCK);
  loop_.watch(child_.pipe(), POLLIN, [this](short) { read(); });
}

ChildText::~ChildText() {
  if (limit_) loop_.cancel(*limit_);
  if (look_) loop_.cancel(*look_);
  loop_.forget(child_.pipe());
}

void ChildText::read() {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(child_.pipe(), buffer.data(), buffer.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) {
    loop_.forget(child_.pipe());
    return awaitEnd(0);
  }
  text_.append(buffer.data(), static_cast<std::size_t>(count));
  if (text_.size() > kMostText) finish(std::nullopt);
}

void ChildText::awaitEnd(int looks) {
  if (child_.hasEnded()) return finish(child_.wait());
  if (looks == kMostLooksAtChild) return finish(std::nullopt);
  look_ = loop_.after(kBetweenLooksAtChild, [this, looks] {
    look_.reset();
    awaitEnd(looks + 1);
  });
}

// The listener may destroy this object.
void ChildText::finish(std::optional<int> status) {
  if (limit_) loop_.cancel(*limit_);
  limit_.reset();
  loop_.forget(child_.pipe());
  if (child_.id() != -1) {
    child_.kill();
    child_.wait();
  }
  const Done done = std::move(done_);
  const std::string text = std::move(text_);
  done(text, status);
}

}  // namespace driver_feature::page_server

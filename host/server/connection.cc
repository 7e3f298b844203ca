#include "host/server/connection.h"

#include <poll.h>

#include <utility>

namespace driver_feature::host {

Connection::Connection(Relay relay, RequestNumber number, ConnectionSetting setting)
    : relay_(std::move(relay)),
      number_(number),
      setting_(std::move(setting)),
      framing_(setting_.limits.headBytes) {
  setting_.loop.watch(relay_.network(), POLLIN, [this](short events) { handle(events); });
  enter(Phase::kIdle);
}

Connection::~Connection() {
  if (timer_) setting_.loop.cancel(*timer_);
  setting_.loop.forget(relay_.network());
}

void Connection::handle(short events) {
  if ((events & POLLNVAL) != 0) return end();
  if ((events & (POLLERR | POLLHUP)) != 0 && (events & POLLIN) == 0) return end();
  const bool mayBegin = phase_ == Phase::kIdle && setting_.encryption.credentials;
  if (mayBegin && relay_.hasHandshake()) return beginEncryption();
  if (phase_ == Phase::kHandshake) return shakeHands();
  if ((events & POLLOUT) != 0 && !relay_.send()) return end();
  if ((events & POLLIN) != 0) isAtEnd_ = !relay_.receive() || isAtEnd_;
  proceed();
}

void Connection::proceed() {
  while (phase_ != Phase::kOver && step()) {
  }
  if (phase_ == Phase::kOver) return;
  // A client that has closed its side gets its response, but nothing is waited for.
  const bool isWaiting = phase_ != Phase::kThinking && phase_ != Phase::kSending;
  if (isAtEnd_ && isWaiting) return end();
  const bool mayRead = !isAtEnd_ && isWaiting;
  const int events = (mayRead ? POLLIN : 0) | (relay_.hasUnsent() ? POLLOUT : 0);
  setting_.loop.change(relay_.network(), static_cast<short>(events));
}

// One step of the phase. False when it must wait.
bool Connection::step() {
  switch (phase_) {
    case Phase::kIdle:
      // Line ends between requests are allowed.
      while (relay_.incoming().starts_with('\r') || relay_.incoming().starts_with('\n')) {
        relay_.drop(1);
      }
      if (relay_.incoming().empty()) return false;
      framing_.expectHead();
      enter(Phase::kHead);
      return true;
    case Phase::kHead:
      return readHead();
    case Phase::kBody:
      return readBody();
    case Phase::kSending:
      if (!relay_.send()) {
        end();
        return false;
      }
      if (relay_.hasUnsent()) return false;
      afterSending();
      return true;
    case Phase::kOpen:
      // Nothing is expected of the client but that it reads.
      relay_.drop(relay_.incoming().size());
      if (!relay_.send()) end();
      isBehind_ = isBehind_ && relay_.hasUnsent();
      return false;
    case Phase::kLingering:
      relay_.drop(relay_.incoming().size());
      return false;
    default:
      return false;
  }
}

void Connection::beginEncryption() {
  if (!relay_.encrypt(setting_.encryption.credentials)) return end();
  enter(Phase::kHandshake);
  shakeHands();
}

void Connection::shakeHands() {
  const TlsSession::Step step = relay_.shakeHands();
  if (step == TlsSession::Step::kFailed) return end();
  if (step != TlsSession::Step::kDone) {
    const bool needsRoom = step == TlsSession::Step::kNeedsRoom;
    return setting_.loop.change(relay_.network(), needsRoom ? POLLOUT : POLLIN);
  }
  if (std::exchange(isUpgrading_, false)) {
    relay_.collect();
    enter(Phase::kSending);
  } else {
    enter(Phase::kIdle);
  }
  isAtEnd_ = !relay_.receive() || isAtEnd_;
  proceed();
}

void Connection::afterSending() {
  if (!isLast_) return enter(Phase::kIdle);
  // Bytes that come after the end of a connection would make the client lose
  // the response.
  relay_.endSending();
  enter(Phase::kLingering);
}

void Connection::enter(Phase phase) {
  phase_ = phase;
  if (timer_) setting_.loop.cancel(*timer_);
  timer_.reset();
  counted_ = phase == Phase::kBody ? bodyBytes_ : relay_.unsent();
  const Limits& limits = setting_.limits;
  if (phase == Phase::kIdle) timer_ = setting_.loop.after(limits.idle, [this] { end(); });
  const bool isHead = phase == Phase::kHead || phase == Phase::kHandshake;
  if (isHead) timer_ = setting_.loop.after(limits.head, [this] { end(); });
  if (phase == Phase::kLingering) timer_ = setting_.loop.after(limits.linger, [this] { end(); });
  if (phase == Phase::kBody || phase == Phase::kSending) watchRate();
  if (phase == Phase::kOpen) watchOpen();
}

// Ends the connection when too little has moved since the last look.
void Connection::watchRate() {
  timer_ = setting_.loop.after(setting_.limits.quiet, [this] {
    timer_.reset();
    const std::uint64_t now = phase_ == Phase::kBody ? bodyBytes_ : relay_.unsent();
    const std::uint64_t moved = phase_ == Phase::kBody ? now - counted_ : counted_ - now;
    if (moved < setting_.limits.bodyRate) return end();
    counted_ = now;
    watchRate();
  });
}

// Ends an open response when the client has been slow since the last look.
void Connection::watchOpen() {
  timer_ = setting_.loop.after(setting_.limits.quiet, [this] {
    timer_.reset();
    if (isBehind_) return end();
    isBehind_ = relay_.hasUnsent();
    watchOpen();
  });
}

void Connection::end() {
  if (phase_ == Phase::kOver) return;
  phase_ = Phase::kOver;
  taker_.reset();
  setting_.loop.change(relay_.network(), 0);
  if (timer_) setting_.loop.cancel(*timer_);
  // The connection is not destroyed while it runs.
  timer_ = setting_.loop.after(EventLoop::Milliseconds(0), [this] {
    timer_.reset();
    if (const auto isOver = std::exchange(isOver_, {})) isOver();
    const auto isOver = setting_.isOver;
    isOver(number_);
  });
}

}  // namespace driver_feature::host

#include "host/server/event_loop.h"

#include <poll.h>

#include <algorithm>
#include <vector>

namespace driver_feature::host {

void EventLoop::watch(int descriptor, short events, std::function<void(short)> ready) {
  watches_[descriptor] = {events, ++lastNumber_, std::move(ready)};
}

void EventLoop::change(int descriptor, short events) {
  const auto found = watches_.find(descriptor);
  if (found != watches_.end()) found->second.events = events;
}

void EventLoop::forget(int descriptor) {
  watches_.erase(descriptor);
}

EventLoop::Timer EventLoop::after(Milliseconds delay, std::function<void()> run) {
  const Timer timer{Clock::now() + delay, ++lastNumber_};
  timers_.emplace(timer, std::move(run));
  return timer;
}

// Milliseconds until the first timer, rounded up, so that it is due then.
int EventLoop::patience() const {
  if (timers_.empty()) return -1;
  const auto left = timers_.begin()->first.first - Clock::now();
  const auto rounded = std::chrono::ceil<Milliseconds>(left).count();
  return static_cast<int>(std::clamp<decltype(rounded + 0)>(rounded, 0, 60000));
}

void EventLoop::runTimers() {
  const auto now = Clock::now();
  while (!timers_.empty() && timers_.begin()->first.first <= now) {
    // Taken out first: what it calls may add and cancel timers.
    const auto run = std::move(timers_.begin()->second);
    timers_.erase(timers_.begin());
    run();
  }
}

void EventLoop::runWatches() {
  std::vector<pollfd> polled;
  std::vector<std::uint64_t> numbers;
  for (const auto& [descriptor, watch] : watches_) {
    polled.push_back({descriptor, watch.events, 0});
    numbers.push_back(watch.number);
  }
  if (::poll(polled.data(), polled.size(), patience()) <= 0) return;
  for (std::size_t i = 0; i < polled.size(); ++i) {
    if (polled[i].revents == 0) continue;
    // One that was called before may have ended this watch.
    const auto found = watches_.find(polled[i].fd);
    if (found == watches_.end() || found->second.number != numbers[i]) continue;
    const auto ready = found->second.ready;
    ready(polled[i].revents);
  }
}

void EventLoop::run() {
  isStopped_ = false;
  while (!isStopped_) {
    runTimers();
    if (!isStopped_) runWatches();
  }
}

}  // namespace driver_feature::host

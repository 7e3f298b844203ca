// Waiting for many descriptors and times in one thread.
#ifndef HOST_SERVER_EVENT_LOOP_H_
#define HOST_SERVER_EVENT_LOOP_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace driver_feature::host {

class EventLoop {
 public:
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::milliseconds;
  using Timer = std::pair<Clock::time_point, std::uint64_t>;

  // Calls `ready` with what poll() found whenever one of `events` is there, or
  // the other end is gone. The descriptor stays the caller's, who forgets it
  // before it is closed. An earlier watch of the same descriptor ends.
  void watch(int descriptor, short events, std::function<void(short)> ready);

  // Changes the events to wait for; 0 waits only until the other end is gone.
  void change(int descriptor, short events);

  void forget(int descriptor);

  // Calls `run` once, this much later at the earliest.
  Timer after(Milliseconds delay, std::function<void()> run);

  // Does nothing for one that has run.
  void cancel(const Timer& timer) { timers_.erase(timer); }

  // Waits and calls until stop() has been called.
  void run();
  void stop() { isStopped_ = true; }

 private:
  struct Watch {
    short events = 0;
    std::uint64_t number = 0;  // Tells it from a later watch of the same descriptor.
    std::function<void(short)> ready;
  };

  int patience() const;
  void runTimers();
  void runWatches();

  bool isStopped_ = false;
  std::uint64_t lastNumber_ = 0;
  std::map<int, Watch> watches_;
  std::map<Timer, std::function<void()>> timers_;
};

}  // namespace driver_feature::host

#endif  // HOST_SERVER_EVENT_LOOP_H_

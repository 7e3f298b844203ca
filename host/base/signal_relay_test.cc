#include "host/base/signal_relay.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <utility>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"

namespace driver_feature::host {

namespace {

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// What the processes of a test do.
struct Parts {
  std::function<void()> begin = [] {};    // Before there is a copy.
  std::function<void()> prepare = [] {};  // In the copy, before it says that it is ready.
  std::function<int()> work;              // In the copy, afterwards.
};

// A process with a relay and a copy. Its status is the copy's, or 99 when a signal
// has ended the copy and not it.
ChildProcess startRelaying(const Parts& parts) {
  auto process = ChildProcess::start(ChildStreams::kShared, [&](int ready) {
    // Whoever runs the tests may ignore some.
    for (const int signal : kSignals) std::signal(signal, SIG_DFL);
    parts.begin();
    SignalRelay relay;
    auto copy = ChildProcess::start(ChildStreams::kShared, [&](int) {
      relay.leave();
      parts.prepare();
      writeAll(ready, "r");
      return parts.work();
    });
    relay.begin(copy->id());
    const int status = copy->wait();
    relay.end(status);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 99;
  });
  char byte = 0;
  EXPECT_EQ(::read(process->pipe(), &byte, 1), 1);
  return std::move(*process);
}

// Until a signal comes; bounded in case none does.
int waitLong() {
  ::sleep(30);
  return 98;
}

TEST(SignalRelayTest, Signal_EndsTheCopy_EndsThisProcessToo) {
  for (const int signal : kSignals) {
    ChildProcess process = startRelaying({.work = &waitLong});
    ::kill(process.id(), signal);
    const int status = process.wait();
    ASSERT_TRUE(WIFSIGNALED(status)) << signal;
    EXPECT_EQ(WTERMSIG(status), signal);
  }
}

TEST(SignalRelayTest, Signal_CopyCatchesIt_ItsStatusCounts) {
  ChildProcess process = startRelaying(
      {.prepare = [] { std::signal(SIGTERM, [](int) { ::_exit(3); }); }, .work = &waitLong});
  ::kill(process.id(), SIGTERM);
  const int status = process.wait();
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST(SignalRelayTest, Signal_ThatIsIgnored_StaysIgnored) {
  ChildProcess process =
      startRelaying({.begin = [] { std::signal(SIGHUP, SIG_IGN); },
                     .prepare = [] { std::signal(SIGHUP, [](int) { ::_exit(3); }); },
                     .work = [] { return ::usleep(20000) == 0 ? 5 : 4; }});
  ::kill(process.id(), SIGHUP);
  const int status = process.wait();
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 5);
}

}  // namespace

}  // namespace driver_feature::host

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

// A process with a relay and a copy that prepares, says that it is ready, and does
// `work`. Its status is the copy's, or 99 when a signal has ended the copy and not it.
ChildProcess startRelaying(
    const std::function<int()>& work, const std::function<void()>& prepare = [] {}) {
  auto process = ChildProcess::start(ChildStreams::kShared, [&](int ready) {
    SignalRelay relay;
    auto copy = ChildProcess::start(ChildStreams::kShared, [&](int) {
      relay.leave();
      prepare();
      writeAll(ready, "r");
      return work();
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

int waitForever() {
  while (true) ::pause();
}

TEST(SignalRelayTest, Signal_EndsTheCopy_EndsThisProcessToo) {
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
    ChildProcess process = startRelaying(&waitForever);
    ::kill(process.id(), signal);
    const int status = process.wait();
    ASSERT_TRUE(WIFSIGNALED(status)) << signal;
    EXPECT_EQ(WTERMSIG(status), signal);
  }
}

TEST(SignalRelayTest, Signal_CopyCatchesIt_ItsStatusCounts) {
  ChildProcess process =
      startRelaying(&waitForever, [] { std::signal(SIGTERM, [](int) { ::_exit(3); }); });
  ::kill(process.id(), SIGTERM);
  const int status = process.wait();
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST(SignalRelayTest, Signal_ThatIsIgnored_StaysIgnored) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  ChildProcess process = startRelaying([] {
    ::usleep(20000);
    return 5;
  });
  ::kill(process.id(), SIGHUP);
  const int status = process.wait();
  std::signal(SIGHUP, before);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 5);
}

}  // namespace

}  // namespace driver_feature::host

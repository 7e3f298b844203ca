#include "programs/printer/stages.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"

namespace driver_feature::printer {
namespace {

// Runs the stages in a process of their own: they change what this one does with
// signals. "TEXT|problem".
std::string outcomeOf(const std::vector<Stage>& stages) {
  const auto texts = host::runInChild(host::ChildStreams::kShared, [&stages] {
    std::array<int, 2> ends{};
    [[maybe_unused]] const int made = ::pipe2(ends.data(), O_CLOEXEC);
    const auto done = runStages(stages, -1, ends[1]);
    ::close(ends[1]);
    return std::vector<std::string>{host::readAll(ends[0]) + "|" +
                                    (done ? "" : describe(done.error())) +
                                    (wasKilled() ? " (killed)" : "")};
  });
  return texts ? texts->front() : describe(texts.error());
}

Stage writes(const std::string& text) {
  return {"writer", [text] { return host::writeAll(STDOUT_FILENO, text) ? 0 : 1; }};
}

Stage copies() {
  return {"copier",
          [] { return host::writeAll(STDOUT_FILENO, host::readAll(STDIN_FILENO)) ? 0 : 1; }};
}

TEST(RunStages, EachReadsTheOneBefore_LastOneWrites) {
  EXPECT_EQ(outcomeOf({writes("hello"), copies(), copies()}), "hello|");
}

TEST(RunStages, OneFails_IsTheProblem) {
  EXPECT_EQ(outcomeOf({writes("hello"), {"middle", [] { return 3; }}, copies()}),
            "|middle ends with exit status 3");
}

TEST(RunStages, ReaderFails_WriterIsNotBlamed) {
  const Stage endless{"endless", [] {
                        while (host::writeAll(STDOUT_FILENO, std::string(65536, 'x'))) {
                        }
                        return 1;
                      }};
  EXPECT_EQ(outcomeOf({endless, {"reader", [] { return 4; }}}), "|reader ends with exit status 4");
}

TEST(RunStages, ProgramIsMissing_IsTheProblem) {
  EXPECT_EQ(outcomeOf({{"nonesuch", [] { return runProgram({"/nonesuch"}); }}}),
            "|nonesuch ends with exit status 127");
}

TEST(RunStages, OneIsKilled_IsNoted) {
  EXPECT_EQ(outcomeOf({{"victim", [] { return ::raise(SIGKILL); }}}),
            "|victim ends with signal 9 (killed)");
}

TEST(RunStages, Cancelled_StagesThatMayGetTheSignal) {
  const auto texts = host::runInChild(host::ChildStreams::kShared, [] {
    std::array<int, 2> ends{};
    [[maybe_unused]] const int made = ::pipe2(ends.data(), O_CLOEXEC);
    const pid_t self = ::getpid();
    const Stage waits{"waits", [] {
                        ::pause();
                        return 0;
                      }};
    const Stage cancels{"cancels",
                        [self] {
                          ::usleep(20000);
                          ::kill(self, SIGTERM);
                          return host::readAll(STDIN_FILENO).empty() ? 0 : 1;
                        },
                        false};
    const auto done = runStages({waits, cancels}, -1, -1);
    return std::vector<std::string>{done ? "" : describe(done.error()),
                                    isCancelled() ? "cancelled" : ""};
  });
  ASSERT_TRUE(texts);
  EXPECT_EQ(*texts, (std::vector<std::string>{"waits ends with signal 15", "cancelled"}));
}

}  // namespace
}  // namespace driver_feature::printer

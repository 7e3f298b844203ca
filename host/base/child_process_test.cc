#include "host/base/child_process.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>

#include "host/base/descriptor.h"
#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

using Texts = std::vector<std::string>;

TEST(ChildProcessTest, RunInChild_Work_ReturnsItsTextsAndChangesNothingHere) {
  int number = 1;
  const auto texts = runInChild(ChildStreams::kDropped, [&number] {
    number = 2;
    return Texts{"a:b", "", std::string("\0.", 2)};
  });
  ASSERT_TRUE(texts);
  EXPECT_EQ(*texts, (Texts{"a:b", "", std::string("\0.", 2)}));
  EXPECT_EQ(number, 1);
}

TEST(ChildProcessTest, RunInChild_WorkThatEndsTheProcess_SaysHow) {
  const auto problemOf = [](const std::function<Texts()>& work) {
    return problemText(runInChild(ChildStreams::kDropped, work));
  };
  EXPECT_EQ(problemOf([]() -> Texts { ::_exit(0); }), "the process ends with exit status 0");
  EXPECT_EQ(problemOf([]() -> Texts { ::_exit(3); }), "the process ends with exit status 3");
  EXPECT_EQ(problemOf([]() -> Texts {
              ::kill(::getpid(), SIGKILL);
              return {};
            }),
            "the process ends with signal 9");
}

TEST(ChildProcessTest, RunInChild_Exception_IsTheProblem) {
  EXPECT_EQ(problemText(runInChild(ChildStreams::kDropped,
                                   []() -> Texts { throw std::runtime_error("no luck"); })),
            "no luck");
  EXPECT_EQ(problemText(runInChild(ChildStreams::kDropped, []() -> Texts { throw 1; })),
            "the process ends with exit status 1");
}

TEST(ChildProcessTest, StartGroup_Output_GoesToTheFileAndTheGroupIsKilled) {
  const int file = ::memfd_create("output", MFD_CLOEXEC);
  auto child = ChildProcess::startGroup(file, [](int pipe) {
    std::printf("out");
    std::fflush(stdout);
    if (::fork() == 0) {
      for (;;) ::pause();  // Holds the pipe.
    }
    return writeAll(pipe, "x") ? 7 : 1;
  });
  ASSERT_EQ(problemText(child), "");
  char byte = 0;
  EXPECT_EQ(::read(child->pipe(), &byte, 1), 1);
  EXPECT_EQ(child->wait(), 7 << 8);
  EXPECT_EQ(readAll(child->pipe()), "");  // Ends, since nobody is left.
  char output[8] = {};
  EXPECT_EQ(::pread(file, output, sizeof output, 0), 3);
  EXPECT_STREQ(output, "out");
  ::close(file);
}

TEST(ChildProcessTest, Destructor_ChildThatWasNotWaitedFor_IsKilled) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  {
    const auto child = ChildProcess::start(ChildStreams::kShared, [](int) -> int {
      for (;;) ::pause();
    });
    ASSERT_EQ(problemText(child), "");
    ::close(ends[1]);  // The child has it, too.
  }
  char byte = 0;
  EXPECT_EQ(::read(ends[0], &byte, 1), 0);
  ::close(ends[0]);
}

// The copy holds the writing end of a pipe, which is closed when it is gone.
TEST(ChildProcessTest, RunInChild_EndOfTheProcess_EndsTheCopy) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const pid_t process = ::fork();
  if (process == 0) {
    ::close(ends[0]);
    runInChild(ChildStreams::kDropped, [&ends]() -> Texts {
      if (::write(ends[1], "x", 1) != 1) ::_exit(1);
      for (;;) ::pause();
    });
    ::_exit(0);
  }
  ::close(ends[1]);
  std::array<char, 2> buffer{};
  EXPECT_EQ(::read(ends[0], buffer.data(), buffer.size()), 1);
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
  EXPECT_EQ(::read(ends[0], buffer.data(), buffer.size()), 0);
  ::close(ends[0]);
}

}  // namespace

}  // namespace driver_feature::host

#include "host/process_copy.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>

namespace driver_feature {

namespace {

using Texts = std::vector<std::string>;

TEST(ProcessCopyTest, RunInCopy_Work_AnswersItsTextsAndChangesNothingHere) {
  int number = 1;
  const auto texts = runInCopy(CopyStreams::kMuted, [&number] {
    number = 2;
    return Texts{"a:b", "", std::string("\0.", 2)};
  });
  EXPECT_EQ(texts, (Texts{"a:b", "", std::string("\0.", 2)}));
  EXPECT_EQ(number, 1);
}

TEST(ProcessCopyTest, RunInCopy_WorkThatEndsTheProcess_AnswersNothing) {
  EXPECT_FALSE(runInCopy(CopyStreams::kMuted, []() -> Texts { ::_exit(0); }));
}

// The copy holds the writing end of a pipe, which is closed when it is gone.
TEST(ProcessCopyTest, RunInCopy_EndOfTheProcess_EndsTheCopy) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const pid_t process = ::fork();
  if (process == 0) {
    ::close(ends[0]);
    runInCopy(CopyStreams::kMuted, [&ends]() -> Texts {
      if (::write(ends[1], "x", 1) != 1) ::_exit(1);
      ::alarm(20);  // So that a failure of the test leaves nothing behind.
      for (;;) ::pause();
    });
    ::_exit(0);
  }
  ::close(ends[1]);
  std::array<char, 2> buffer{};
  EXPECT_EQ(::read(ends[0], buffer.data(), buffer.size()), 1);
  const auto start = std::chrono::steady_clock::now();
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
  EXPECT_EQ(::read(ends[0], buffer.data(), buffer.size()), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  ::close(ends[0]);
}

}  // namespace

}  // namespace driver_feature

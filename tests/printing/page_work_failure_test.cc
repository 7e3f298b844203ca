// The built filter when work on the pages of a document fails or is cancelled.

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include "printing/page_work_fixture.h"
#include "printing/running_filter.h"

namespace {

using testing::EndsWith;

TEST_F(PageWorkTest, UnusableJob_FailsAsWithoutOptions) {
  write("job.ps", "%PDF-1.4\n");
  const RunResult result = filter("number-up=2");
  EXPECT_EQ(reported(result),
            "WARNING: option number-up has no effect, because the job is not one PostScript "
            "document\nERROR: the job is not PostScript, because it does not begin with %!; let a "
            "filter convert it first\n");
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(reported(filterWith({"7", "jane", "t", "1", "number-up=2", "none.ps"})),
            "ERROR: the job cannot be read from none.ps: No such file or directory\n");
}

TEST_F(PageWorkTest, FailingFilter_FailsTheJob) {
  struct Row {
    const char* script;
    const char* reason;
  };
  for (const Row& row : std::vector<Row>{
           {"exit 3", " failed with status 3; the document is incomplete\n"},
           {"cat; exit 3", " failed with status 3; the document is incomplete\n"},
           {"head -c 100; kill -SEGV $$", " was ended by signal 11; the document is incomplete\n"},
           {"exec /nowhere", " failed with status 127; the document is incomplete\n"}}) {
    replaceFilter(row.script);
    const RunResult result = filter("number-up=2");
    EXPECT_THAT(result.errors, EndsWith("ERROR: " + ofFilter(row.reason))) << row.script;
    EXPECT_EQ(result.status, 1) << row.script;
    EXPECT_TRUE(result.output.empty() || result.output.ends_with(kExit)) << row.script;
  }
  // One that succeeds without a document does not print nothing.
  replaceFilter("exit 0");
  const RunResult result = filter("number-up=2");
  EXPECT_EQ(reported(result), "ERROR: the job is empty; send a PostScript document\n");
  EXPECT_EQ(result.status, 1);
}

// A filter that is ended from outside exits cleanly but early.
TEST_F(PageWorkTest, OutputThatEndsEarly_FailsTheJob) {
  const std::string failure =
      "ERROR: the document is incomplete, because the scheduler's filter for pages has ended "
      "early\n";
  replaceFilter("sed '/^%%Trailer/,$d'");
  RunResult result = filter("number-up=2");
  EXPECT_EQ(reported(result), kTwoPages + failure);
  EXPECT_THAT(result.output, EndsWith("(two) pageText showpage\n" + kExit));
  EXPECT_EQ(result.status, 1);
  // Copies of a document without a trailer are counted.
  write("job.ps", "%!\nshowpage\n");
  replaceFilter("echo '%!PS-Adobe-3.0'; echo '%%EndComments'; echo '%%Page: 1 1'; cat");
  result = filter("collate=true", "2");
  EXPECT_EQ(reported(result), "PAGE: 1 1\n" + failure);
  EXPECT_EQ(result.status, 1);
}

TEST_F(PageWorkTest, NoPageLeft_IsWarnedOf) {
  const RunResult result = filter("page-ranges=3");
  EXPECT_EQ(reported(result),
            "WARNING: no page is printed, because the job's options leave out all of them\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(PageWorkTest, FullFolder_FailsTheJob) {
  write("job.ps", read("job.ps") + std::string(10000, '%'));
  const RunResult result = filterWith({"7", "jane", "t", "1", "number-up=2", "job.ps"}, [] {
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  });
  const std::string failure = "ERROR: the job cannot be kept in " + (folder() / "tmp").string();
  EXPECT_EQ(reported(result), failure + ": File too large\n");
  EXPECT_EQ(result.status, 1);
  set("TMPDIR", folder() / "none");
  EXPECT_EQ(reported(filter("number-up=2")), "ERROR: the job cannot be kept in " +
                                                 (folder() / "none").string() +
                                                 ": No such file or directory\n");
}

// The filter keeps pages of its own when their order changes, and would not
// notice that it cannot.
TEST_F(PageWorkTest, FolderWithoutRoomForThePages_FailsTheJob) {
  const std::string smallFolder = folder() / "tmp";
  const auto mountSmallFolder = [&smallFolder] {
    const bool isMounted =
        (::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        ::mount("none", smallFolder.c_str(), "tmpfs", 0, "size=512k") == 0;
    if (!isMounted) ::_exit(99);
  };
  const RunResult result =
      filterWith({"7", "jane", "t", "1", "outputorder=reverse", "job.ps"}, mountSmallFolder);
  if (result.status == 99) GTEST_SKIP() << "this user may not mount a small folder";
  EXPECT_EQ(reported(result),
            "ERROR: the job cannot be kept in " + smallFolder + ": there is not enough room\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(filterWith({"7", "jane", "t", "1", "page-set=odd", "job.ps"}, mountSmallFolder).status,
            0);
}

TEST_F(PageWorkTest, DeviceThatWentAway_EndsTheFilter) {
  replaceFilter("echo $$ >pid; cat; trap '' TERM PIPE; while :; do echo % || sleep 1; done");
  const RunResult result = filterWith({"7", "jane", "t", "1", "number-up=2", "job.ps"}, [] {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return;
    ::close(ends[0]);
    ::dup2(ends[1], STDOUT_FILENO);
  });
  EXPECT_THAT(reported(result),
              EndsWith("ERROR: the job cannot be written to the device: Broken pipe\n"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(::kill(notedProcess(), 0), -1);
}

TEST_F(PageWorkTest, Cancel_EndsTheFilterAndTheJob) {
  // One filter ends with the signal, the other has to be killed.
  for (const std::string trap : {"trap 'exit 0' TERM", "trap '' TERM"}) {
    std::filesystem::remove(folder() / "pid");
    replaceFilter(trap + "; echo '%!PS-Adobe-3.0'; echo $$ >pid; while :; do sleep 0.05; done");
    RunningFilter running(
        folder(), [this] { enter(); }, "number-up=2");
    running.send(read("job.ps"));
    running.endInput();
    const pid_t process = notedProcess();
    EXPECT_GT(process, 0);
    const std::string begun = kHeader + "%!PS-Adobe-3.0\n";
    EXPECT_EQ(running.read(begun.size()), begun);
    running.cancel();
    EXPECT_THAT(running.read(1000), EndsWith(kExit)) << trap;
    EXPECT_EQ(running.finish(), 0) << trap;
    EXPECT_EQ(::kill(process, 0), -1) << trap;
  }
}

TEST_F(PageWorkTest, CancelWhileTheJobIsRead_WritesNothing) {
  RunningFilter running(
      folder(), [this] { enter(); }, "number-up=2");
  running.send("%!PS-Adobe-3.0\n");
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  running.cancel();
  EXPECT_EQ(running.read(100), "");
  EXPECT_EQ(running.finish(), 0);
}

}  // namespace

// The command "queue".

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <functional>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

TEST_F(QueueCommandTest, GivenPpd_GetsTheLinesAndLosesOtherFilters) {
  command({"import", "office.ppd", "--output", "office.xml"});
  std::string expected = read("office.ppd");
  const std::string first = "*PPD-Adobe: \"4.3\"\n";
  const std::string other = "*cupsFilter: \"application/vnd.cups-raster 0 another-filter\"\n";
  expected.erase(expected.find(other), other.size());
  expected.insert(first.size(), lines("office.xml", "fail"));
  RunResult result = queue({"office.xml", "--ppd", "office.ppd"});
  result.output = withoutStamp(result.output);
  EXPECT_EQ(result, success(expected));
}

TEST_F(QueueCommandTest, PpdOfAQueue_CanBeWrittenAgain) {
  command({"import", "office.ppd", "--output", "office.xml"});
  const RunResult once = queue({"office.xml", "--ppd", "office.ppd", "--output", "queue.ppd"});
  EXPECT_EQ(once, success(""));
  const std::string ppd = read("queue.ppd");
  EXPECT_EQ(queue({"office.xml", "--ppd", "queue.ppd"}), success(ppd));
}

TEST_F(QueueCommandTest, CompressedPpd_IsReadAsItIs) {
  command({"import", "office.ppd", "--output", "office.xml"});
  const RunResult plain = queue({"office.xml", "--ppd", "office.ppd"});
  EXPECT_EQ(runIn(folder(), "/usr/bin/env", {"gzip", "office.ppd"}).status, 0);
  EXPECT_EQ(queue({"office.xml", "--ppd", "office.ppd.gz"}), plain);
}

TEST_F(QueueCommandTest, PathThroughALink_LeadsToTheSameFile) {
  std::filesystem::create_directories(folder() / "far" / "in");
  std::filesystem::create_directory_symlink("far/in", folder() / "link");
  std::filesystem::rename(folder() / "printer.xml", folder() / "far" / "printer.xml");
  EXPECT_EQ(queue({"link/../printer.xml", "--output", "queue.ppd"}), success(""));
  set("PPD", "queue.ppd");
  EXPECT_EQ(filter("").status, 0);
  EXPECT_EQ(queue({"./far/in/../printer.xml", "--output", "queue.ppd"}), success(""));
  EXPECT_THAT(read("queue.ppd"), HasSubstr("Description: \"" + path("far/printer.xml") + "\"\n"));
}

TEST_F(QueueCommandTest, PpdFromAPipe_IsRefused) {
  const std::string ppd = read("office.ppd");
  EXPECT_EQ(queue({"printer.xml", "--ppd", "/dev/stdin"},
                  [&ppd] {
                    std::array<int, 2> ends{};
                    const auto size = static_cast<ssize_t>(ppd.size());
                    const bool isReady = ::pipe(ends.data()) == 0 &&
                                         ::write(ends[1], ppd.data(), ppd.size()) == size &&
                                         ::dup2(ends[0], STDIN_FILENO) == STDIN_FILENO;
                    ::close(ends[1]);
                    if (!isReady) ::_exit(1);
                  }),
            failure(2,
                    "driver-feature: /dev/stdin: cannot be read a second time; give a file "
                    "instead of a pipe\n"));
}

TEST_F(QueueCommandTest, OptionWithoutFeature_IsNamed) {
  const RunResult result = queue({"printer.xml", "--ppd", "office.ppd", "--output", "queue.ppd"});
  EXPECT_EQ(result.errors,
            "driver-feature: office.ppd: option JCLEconoMode does nothing, because printer.xml "
            "has no such feature\n"
            "driver-feature: office.ppd: option Density does nothing, because printer.xml has no "
            "such feature\n"
            "driver-feature: office.ppd: option Stamp does nothing, because printer.xml has no "
            "such feature\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(QueueCommandTest, FilterOfSeveralLines_IsReplacedWhole) {
  std::string ppd = read("office.ppd");
  const std::string other = "*cupsFilter: \"application/vnd.cups-raster 0 another-filter\"\n";
  const std::size_t place = ppd.find(other);
  ppd.replace(place, other.size(),
              "*cupsFilter: \"application/vnd.cups-raster\n0 another-filter\"\n*End\n");
  write("long.ppd", ppd);
  command({"import", "office.ppd", "--output", "office.xml"});
  EXPECT_EQ(queue({"office.xml", "--ppd", "long.ppd"}),
            queue({"office.xml", "--ppd", "office.ppd"}));
}

// libcups leaves the control character out and finds a filter after all.
TEST_F(QueueCommandTest, PpdThatLibcupsCannotUse_IsNotWritten) {
  std::string ppd = read("office.ppd");
  ppd.insert(ppd.find("Filter:"), "\x1A");
  write("odd.ppd", ppd);
  write("queue.ppd", "before");
  command({"import", "office.ppd", "--output", "office.xml"});
  EXPECT_EQ(
      queue({"office.xml", "--ppd", "odd.ppd", "--output", "queue.ppd"}),
      failure(2,
              "driver-feature: odd.ppd: libcups could not use the queue's PPD: it finds filters "
              "that are not the queue's; nothing is written; correct the PPD (cupstestppd "
              "explains more)\n"));
  EXPECT_EQ(read("queue.ppd"), "before");
}

TEST_F(QueueCommandTest, UnusableFiles_AreRefused) {
  EXPECT_THAT(queue({"none.xml"}).errors, testing::StartsWith("driver-feature: none.xml: error: "));
  EXPECT_EQ(queue({"none.xml"}).status, 2);
  const RunResult result = queue({"printer.xml", "--ppd", "job.ps"});
  EXPECT_THAT(result.errors, testing::StartsWith("driver-feature: job.ps:1: "));
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(queue({"printer.xml", "--ppd", "office.ppd", "--name", "a"}).status, 2);
  std::filesystem::rename(folder() / "printer.xml", folder() / "a\"b.xml");
  EXPECT_EQ(queue({"a\"b.xml"}),
            failure(2, "driver-feature: " + path("a\"b.xml") +
                           ": a PPD cannot hold this path, because of a quotation mark or a "
                           "control character in it; give the file another name\n"));
}

}  // namespace

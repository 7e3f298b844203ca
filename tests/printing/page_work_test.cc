// The built filter with options for the pages of a document, which the
// scheduler's own filter carries out, and with copies of it that fail.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "printing/filter_fixture.h"
#include "printing/running_filter.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kHeader =
    kExit + "@PJL\r\n@PJL SET COPIES=1\r\n@PJL SET PAPER=A4\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n";

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// The lines of PAGE, WARNING and ERROR.
std::string reported(RunResult result) {
  return withoutDebug(std::move(result)).errors;
}

class PageWorkTest : public FilterTest {
 protected:
  PageWorkTest() {
    set("DRIVER_FEATURE_DESCRIPTION", "printer.xml");
    set("TMPDIR", folder() / "tmp");
    std::filesystem::create_directory(folder() / "tmp");
  }

  ~PageWorkTest() override {
    EXPECT_TRUE(std::filesystem::is_empty(folder() / "tmp")) << "a file is left";
  }

  // Replaces the scheduler's filter by a shell script.
  void replaceFilter(const std::string& script) {
    const auto bin = folder() / "serverbin" / "filter";
    std::filesystem::create_directories(bin);
    std::ofstream(bin / "pstops") << "#!/bin/sh\n" << script << "\n";
    std::filesystem::permissions(bin / "pstops", std::filesystem::perms::owner_all);
    set("CUPS_SERVERBIN", folder() / "serverbin");
  }

  // The process that the replaced filter has noted in the file "pid", which
  // must be there soon.
  pid_t notedProcess() const {
    pid_t process = 0;
    for (int i = 0; i < 200 && process == 0; ++i) {
      std::ifstream(folder() / "pid") >> process;
      if (process == 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return process;
  }

  std::string ofFilter(const std::string& rest) const {
    return "the scheduler's filter " + (folder() / "serverbin/filter/pstops").string() + rest;
  }
};

TEST_F(PageWorkTest, Option_IsCarriedOutAndCommandsComeOnce) {
  const RunResult result = filter("page-ranges=2 sides=two-sided-long-edge");
  EXPECT_THAT(result.output, StartsWith(kHeader + "%!PS-Adobe-3.0\n"));
  EXPECT_THAT(result.output, EndsWith("%%EOF\n" + kExit));
  EXPECT_THAT(result.output, HasSubstr("%%BeginSetup\n<< /Duplex true /Tumble false >> "
                                       "setpagedevice\n<< /PageSize [595 842] >> setpagedevice\n"));
  EXPECT_THAT(result.output, HasSubstr("\n(two) pageText showpage\n"));
  EXPECT_THAT(result.output, Not(HasSubstr("(one)")));
  EXPECT_EQ(countOf(result.output, "setpagedevice\n"), 2U);
  EXPECT_EQ(countOf(result.output, kExit), 2U);
  EXPECT_EQ(reported(result), "PAGE: 1 1\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(PageWorkTest, OptionThatAsksForNothing_NeedsNoFilter) {
  replaceFilter("exit 9");
  const RunResult result = filter(
      "number-up=1 outputorder=normal page-set=all collate=true mirror=false page-left=9 "
      "orientation-requested=3 number-up-layout=rltb");
  EXPECT_EQ(reported(result), kTwoPages);
  EXPECT_EQ(result.output, filter("").output);
  EXPECT_EQ(result.status, 0);
}

TEST_F(PageWorkTest, DocumentThatWasConverted_IsNotWorkedOnAgain) {
  replaceFilter("exit 9");
  set("CONTENT_TYPE", "application/pdf");
  write("job.ps", "%!PS-Adobe-3.0\n%RBINumCopies: 3\n%%EndComments\n%%Page: 1 1\nshowpage\n");
  const RunResult result = filterWith({"7", "jane", "t", "3", "number-up=2 page-ranges=1"},
                                      [] { ::dup2(::open("job.ps", O_RDONLY), STDIN_FILENO); });
  EXPECT_EQ(result.errors, "DEBUG: the description is printer.xml\nPAGE: 1 3\n");
}

TEST_F(PageWorkTest, Feature_TakesTheOptionFirst) {
  replaceFilter("exit 9");
  describe("printer.xml", {feature("IntEntry", "Pages", "CLOKey='number-up' PSCommand='%d up'")});
  const RunResult result = filter("number-up=2");
  EXPECT_EQ(reported(result), kTwoPages);
  EXPECT_THAT(result.output, HasSubstr("\n2 up\n"));
}

// Such a feature is for tickets; its choices may have been set by a preset.
TEST_F(PageWorkTest, FeatureThatWritesNothing_LeavesTheWorkToTheFilter) {
  describe("printer.xml",
           {feature("MultiSelect", "Pages", "CLOKey='number-up'",
                    "<Option Name='One' CLOKey='1'/><Option Name='Two' CLOKey='2'/>")});
  for (const char* option : {"number-up=2", "Pages=Two"}) {
    const RunResult result = filter(option);
    EXPECT_EQ(reported(result), "PAGE: 1 1\n") << option;
    EXPECT_THAT(result.output, HasSubstr("\n%RBINumCopies: 1\n"));
  }
  EXPECT_EQ(reported(filter("Pages=One")), kTwoPages);
}

TEST_F(PageWorkTest, CopiesAskedOfTheFeature_AreNotMadeAgainByThePages) {
  const RunResult result = filter("collate=true Copies=3", "3");
  EXPECT_THAT(result.output, HasSubstr("@PJL SET COPIES=1\r\n"));
  EXPECT_EQ(countOf(result.output, "(one) pageText showpage"), 3U);
}

TEST_F(PageWorkTest, CollatedCopies_AreMadeOnce) {
  const RunResult result = filter("collate=true", "3");
  EXPECT_THAT(result.output, StartsWith(kHeader));
  EXPECT_EQ(countOf(result.output, "(one) pageText showpage"), 3U);
  EXPECT_EQ(countOf(result.output, "NumCopies"), 1U) << result.output;  // A comment.
  EXPECT_EQ(reported(result), "PAGE: 1 1\nPAGE: 2 1\nPAGE: 3 1\nPAGE: 4 1\nPAGE: 5 1\nPAGE: 6 1\n");
  const RunResult apart = filter("collate=false", "3");
  EXPECT_EQ(apart.output, filter("", "3").output);
  EXPECT_EQ(reported(apart), "PAGE: 1 3\nPAGE: 2 3\n");
}

TEST_F(PageWorkTest, PagesInUncollatedCopies_AreCountedWithThem) {
  const RunResult result = filter("number-up=2", "3");
  EXPECT_THAT(result.output, HasSubstr("@PJL SET COPIES=3\r\n"));
  EXPECT_THAT(result.output, HasSubstr("\n%RBINumCopies: 1\n"));
  EXPECT_EQ(reported(result), "PAGE: 1 3\n");
}

TEST_F(PageWorkTest, CopiesAskedOfTheFeature_AreCounted) {
  EXPECT_EQ(reported(filter("Copies=4", "1")), "PAGE: 1 4\nPAGE: 2 4\n");
}

TEST_F(PageWorkTest, UnknownValue_IsWarnedOf) {
  replaceFilter("exit 9");
  const RunResult result = filter("number-up=3 scaling=50");
  EXPECT_EQ(reported(result),
            "WARNING: option number-up has no effect: \"3\" is unknown; give 1, 2, 4, 6, 9 or 16\n"
            "WARNING: option scaling has no effect: it is for documents that are converted, and "
            "this one was sent as PostScript\n" +
                kTwoPages);
  EXPECT_EQ(result.status, 0);
}

TEST_F(PageWorkTest, MissingFilter_IsWarnedOfByEachOption) {
  set("CUPS_SERVERBIN", "/nowhere");
  const std::string reason =
      " has no effect, because the scheduler's filter /nowhere/filter/pstops is not there\n";
  const RunResult result = filter("number-up=2 mirror=true collate=true", "2");
  EXPECT_EQ(reported(result), "WARNING: option mirror" + reason + "WARNING: option number-up" +
                                  reason + "WARNING: option collate" + reason +
                                  "PAGE: 1 2\nPAGE: 2 2\n");
  EXPECT_EQ(result.output, filter("", "2").output);
  EXPECT_EQ(result.status, 0);
}

TEST_F(PageWorkTest, DocumentWithoutPages_IsPrintedAsItIs) {
  for (const std::string document : {"%!\nshowpage\n", "%!PS-Adobe-3.0\n%%EndComments\ncode\n"}) {
    write("job.ps", document);
    const RunResult result = filter("number-up=2");
    EXPECT_THAT(reported(result), StartsWith("WARNING: option number-up has no effect, because no "
                                             "comments of the document show its pages\n"));
    EXPECT_EQ(result.output, filter("").output);
    EXPECT_EQ(result.status, 0);
  }
  // One page can be repeated, but not one whose end is unknown.
  EXPECT_EQ(reported(filter("collate=true", "2")),
            "WARNING: option collate has no effect, because no comments of the document show its "
            "pages\n");
  write("job.ps", "%!\n/only page\n");
  const RunResult copies = filter("collate=true number-up=2", "2");
  EXPECT_EQ(countOf(copies.output, "/only page"), 2U);
  EXPECT_EQ(reported(copies),
            "WARNING: option number-up has no effect, because no comments of the document show "
            "its pages\nPAGE: 1 1\nPAGE: 2 1\n");
}

TEST_F(PageWorkTest, JobWithPjlAround_LosesItInFrontOfTheFilter) {
  write("job.ps", kExit + "@PJL\n@PJL ENTER LANGUAGE=POSTSCRIPT\n" + read("job.ps") + kExit);
  const RunResult result = filter("page-set=odd");
  EXPECT_EQ(countOf(result.output, kExit), 2U);
  EXPECT_THAT(result.output, HasSubstr("(one)"));
  EXPECT_THAT(result.output, Not(HasSubstr("(two)")));
}

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

TEST_F(PageWorkTest, Pipe_IsReadAsAFileIs) {
  const std::string document = read("job.ps");
  for (const std::string options : {"page-set=odd", "page-set=odd TMP=1"}) {
    if (options.size() > 12) write("job.ps", "%!\nshowpage\n");
    const std::string expected = filterWith({"7", "jane", "t", "1", options, "job.ps"}).output;
    RunningFilter running(
        folder(), [this] { enter(); }, options);
    running.send(read("job.ps"));
    running.endInput();
    EXPECT_EQ(running.read(100000), expected);
    EXPECT_EQ(running.finish(), 0);
  }
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

// The PPD's own choice is written, and the pages are mirrored, as pstops does both
// for a queue without a description.
TEST_F(PageWorkTest, Mirror_IsThatOfAPlainQueue) {
  write("mirror.ppd", read("office.ppd") +
                          "*OpenUI *MirrorPrint: Boolean\n"
                          "*OrderDependency: 20 DocumentSetup *MirrorPrint\n"
                          "*DefaultMirrorPrint: False\n*MirrorPrint True: \"/mirror true def\"\n"
                          "*MirrorPrint False: \"/mirror false def\"\n*CloseUI: *MirrorPrint\n");
  command({"import", "mirror.ppd", "--output", "mirror.xml"});
  command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "mirror.xml", "--ppd", "mirror.ppd",
           "--output", "queue.ppd"});
  set("DRIVER_FEATURE_DESCRIPTION", "");
  set("PPD", "queue.ppd");
  for (const std::string option : {"mirror=true", "MirrorPrint=True", "mirror=true number-up=2"}) {
    const std::string output = filter(option).output;
    EXPECT_THAT(output, HasSubstr("/mirror true def")) << option;
    EXPECT_THAT(output, HasSubstr(" 0.0 translate -1 1 scale\n")) << option;
  }
  set("CUPS_SERVERBIN", "/nowhere");
  EXPECT_THAT(filter("mirror=true").output, HasSubstr("/mirror true def"));
  EXPECT_EQ(reported(filter("MirrorPrint=True")), kTwoPages);
}

// The filter reads a PPD of the sheet and makes no commands of it.
TEST_F(PageWorkTest, Filter_GetsOptionsAndSheet) {
  command({"import", "office.ppd", "--output", "office.xml"});
  command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "office.xml", "--ppd", "office.ppd",
           "--output", "queue.ppd"});
  set("DRIVER_FEATURE_DESCRIPTION", "");
  set("PPD", "queue.ppd");
  replaceFilter(
      "cp \"$PPD\" page.ppd; printf '%s|' \"$@\" \"$CONTENT_TYPE\" >arguments; cat; exit 0");
  const std::string options =
      "number-up=4 PageSize=A5 page-label='it\\'s \"a\" b' sides=two-sided-long-edge page-left=9 "
      "collate=true";
  EXPECT_EQ(filterWith({"7", "jane", "a title", "2", options, "job.ps"}).status, 0);
  EXPECT_EQ(read("arguments"),
            "7|jane|a title|2|number-up=\"4\" page-label=\"it\\'s \\\"a\\\" b\" page-left=\"9\" "
            "emit-jcl=\"false\" Collate=\"true\"|application/postscript|");
  EXPECT_THAT(read("page.ppd"), HasSubstr("*PaperDimension Sheet: \"420 595\"\n"));
  EXPECT_THAT(read("page.ppd"), HasSubstr("*Duplex DuplexNoTumble: \"\"\n"));
}

}  // namespace

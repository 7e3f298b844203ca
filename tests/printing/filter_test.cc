// The built filter, with a description written by hand.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "printing/filter_fixture.h"
#include "printing/running_filter.h"

namespace {

using testing::HasSubstr;

std::string header(const std::string& copies, const std::string& paper) {
  return kExit + "@PJL\r\n@PJL SET COPIES=" + copies + "\r\n@PJL SET PAPER=" + paper +
         "\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n";
}

std::string setup(const std::string& duplex, const std::string& size) {
  return "<< /Duplex " + duplex + " >> setpagedevice\n<< /PageSize [" + size +
         "] >> setpagedevice\n";
}

// The two pages of job.ps with the texts in their places.
std::string twoPages(const std::string& header, const std::string& setup) {
  return header +
         "%!PS-Adobe-3.0\n%%Title: two pages\n%%Pages: 2\n%%EndComments\n%%BeginProlog\n"
         "/pageText { 72 72 moveto show } def\n%%EndProlog\n%%BeginSetup\n" +
         setup +
         "%%EndSetup\n%%Page: 1 1\n(one) pageText showpage\n%%Page: 2 2\n(two) pageText showpage\n"
         "%%Trailer\n%%EOF\n" +
         kExit;
}

class HandwrittenQueueTest : public FilterTest {
 protected:
  HandwrittenQueueTest() { set("DRIVER_FEATURE_DESCRIPTION", "printer.xml"); }
};

TEST_F(HandwrittenQueueTest, NoOptions_WritesTheDefaults) {
  EXPECT_EQ(filter(""), printed(twoPages(header("1", "A4"), setup("false", "595 842")),
                                "DEBUG: the description is printer.xml\n" + kTwoPages));
}

TEST_F(HandwrittenQueueTest, Options_AreFeaturesOrTheirKeys) {
  EXPECT_EQ(withoutDebug(filter("PageSize=A5 sides=two-sided-long-edge", "3")),
            printed(twoPages(header("3", "A5"), setup("true /Tumble false", "420 595")),
                    "PAGE: 1 3\nPAGE: 2 3\n"));
  EXPECT_EQ(
      withoutDebug(filter("media=Letter sides=LongEdge")),
      printed(twoPages(header("1", "LETTER"), setup("true /Tumble false", "612 792")), kTwoPages));
  EXPECT_EQ(withoutDebug(filter("Copies=5", "3")).output,
            twoPages(header("5", "A4"), setup("false", "595 842")));
}

TEST_F(HandwrittenQueueTest, UnknownOption_IsIgnored) {
  EXPECT_EQ(filter("Unknown=value\n@PJL", "1"),
            printed(twoPages(header("1", "A4"), setup("false", "595 842")),
                    "DEBUG: the description is printer.xml\n"
                    "DEBUG: option @PJL is ignored, because this queue does not have it\n"
                    "DEBUG: option Unknown is ignored, because this queue does not have it\n" +
                        kTwoPages));
}

TEST_F(HandwrittenQueueTest, RefusedValues_FailTheJobAndAreNamed) {
  EXPECT_EQ(filter("PageSize=A0 Unknown=1 sides=many", "1000"),
            failure(1,
                    "DEBUG: the description is printer.xml\n"
                    "DEBUG: option Unknown is ignored, because this queue does not have it\n"
                    "ERROR: option PageSize: feature \"PageSize\" has no option \"A0\"; did you "
                    "mean \"A4\"? (choose one of A4, A5, Letter)\n"
                    "ERROR: option sides: feature \"Duplex\" has no option \"many\"; choose one of "
                    "OneSided, LongEdge\n"
                    "ERROR: option copies: 1000 is out of range; give a whole number, from 1 to 99 "
                    "(printer.xml:13)\n"));
}

TEST_F(HandwrittenQueueTest, RefusedValues_AreReplacedWhenTheQueueSaysSo) {
  set("DRIVER_FEATURE_REFUSED_VALUE", "default");
  EXPECT_EQ(withoutDebug(filter("PageSize=A0 Duplex=LongEdge", "2")),
            printed(twoPages(header("2", "A4"), setup("true /Tumble false", "595 842")),
                    "WARNING: option PageSize: feature \"PageSize\" has no option \"A0\"; did you "
                    "mean \"A4\"? (choose one of A4, A5, Letter); the queue's default is used "
                    "instead\nPAGE: 1 2\nPAGE: 2 2\n"));
}

TEST_F(HandwrittenQueueTest, NoFeatureForCopies_LetsPostScriptMakeThem) {
  describe("printer.xml", {feature("IntEntry", "Weight",
                                   "IntMinValue='60' DefaultValue='80' PSCommand='%d weight'")});
  const std::string copies =
      "/languagelevel where { pop languagelevel } { 1 } ifelse 2 ge\n"
      "{ 1 dict dup /NumCopies 4 put setpagedevice }\n{ userdict /#copies 4 put } ifelse\n";
  std::string expected = twoPages("", "100 weight\n" + copies);
  expected.resize(expected.size() - kExit.size());  // No PJL, no end of it.
  EXPECT_EQ(withoutDebug(filter("Weight=100", "4")), printed(expected, "PAGE: 1 4\nPAGE: 2 4\n"));
}

TEST_F(HandwrittenQueueTest, ValueThatLeavesItsPlace_IsRefused) {
  describe("printer.xml", {feature("TextEntry", "Account", "PJLCommand='@PJL SET A=\"%s\"&#10;'"),
                           feature("TextEntry", "Name",
                                   "CLOKey='job-name' DefaultValue='none' "
                                   "PJLCommand='@PJL SET N=\"%s\"&#10;'")});
  EXPECT_EQ(withoutDebug(filter("Account='x\"\n@PJL RESET'")),
            failure(1,
                    "ERROR: option Account: the value of feature \"Account\" holds byte 0x22, "
                    "which is not safe in a quoted PJL string, where PJLCommand puts it; "
                    "leave the byte out (printer.xml:2)\n"));
  // The title is not an option: it is made harmless.
  EXPECT_THAT(filter("Account=x", "1", "a \"title\"\n@PJL RESET").output,
              testing::StartsWith("@PJL SET A=\"x\"\n@PJL SET N=\"a 'title' @PJL RESET\"\n%!PS"));
}

TEST_F(HandwrittenQueueTest, StandardInput_IsReadWithoutAFile) {
  const auto stdinIsJob = [] {
    const int job = ::open("job.ps", O_RDONLY);
    ::dup2(job, STDIN_FILENO);
  };
  EXPECT_EQ(withoutDebug(filterWith({"7", "jane", "t", "2", ""}, stdinIsJob)).output,
            twoPages(header("2", "A4"), setup("false", "595 842")));
  // Filters that have converted the document have made its copies.
  set("CONTENT_TYPE", "application/pdf");
  EXPECT_EQ(withoutDebug(filterWith({"7", "jane", "t", "2", ""}, stdinIsJob)),
            printed(twoPages(header("1", "A4"), setup("false", "595 842")), kTwoPages));
  set("CONTENT_TYPE", "application/postscript");
  EXPECT_EQ(withoutDebug(filterWith({"7", "jane", "t", "2", ""}, stdinIsJob)).output,
            twoPages(header("2", "A4"), setup("false", "595 842")));
}

TEST_F(HandwrittenQueueTest, UnusableJobs_FailAndWriteNothing) {
  write("job.ps", "%PDF-1.4\n");
  EXPECT_EQ(withoutDebug(filter("")),
            failure(1,
                    "ERROR: the job is not PostScript, because it does not begin with %!; let a "
                    "filter convert it first\n"));
  write("job.ps", "");
  EXPECT_EQ(withoutDebug(filter("")),
            failure(1, "ERROR: the job is empty; send a PostScript document\n"));
  EXPECT_EQ(withoutDebug(filterWith({"7", "jane", "t", "1", "", "none.ps"})),
            failure(1, "ERROR: the job cannot be read from none.ps: No such file or directory\n"));
  EXPECT_EQ(withoutDebug(filterWith({"7", "jane", "t", "1", "", "."})),
            failure(1, "ERROR: the job cannot be read from .: Is a directory\n"));
}

TEST_F(HandwrittenQueueTest, SecondDocument_FailsTheJobAfterTheFirst) {
  const std::string document = kExit + "@PJL\n" + read("job.ps");
  write("job.ps", document + document + kExit);
  const RunResult result = withoutDebug(filter(""));
  EXPECT_EQ(result.output, twoPages(header("1", "A4"), setup("false", "595 842")));
  EXPECT_EQ(result.errors, kTwoPages +
                               "ERROR: only the first document has been printed, because another "
                               "one follows it; send each as a job of its own\n");
  EXPECT_EQ(result.status, 1);
}

TEST_F(HandwrittenQueueTest, UnusableQueues_Fail) {
  EXPECT_EQ(filterWith({"7"}),
            failure(1,
                    "ERROR: wrong usage; give JOB USER TITLE COPIES OPTIONS [FILE], as a print "
                    "scheduler does\n"));
  set("DRIVER_FEATURE_DESCRIPTION", "none.xml");
  EXPECT_THAT(withoutDebug(filter("")).errors, testing::StartsWith("ERROR: none.xml: error: "));
  EXPECT_EQ(filter("").status, 1);
  set("PPD", "job.ps");
  EXPECT_THAT(filter("").errors, testing::StartsWith("ERROR: job.ps:1: this is not a PPD file: "));
  set("PPD", "");
  set("DRIVER_FEATURE_DESCRIPTION", "");
  EXPECT_THAT(filter("").errors, testing::StartsWith("ERROR: the queue names no description; "));
}

TEST_F(HandwrittenQueueTest, FullDevice_FailsWithItsReason) {
  const RunResult result = filterWith({"7", "jane", "t", "1", "", "job.ps"}, [] {
    const int full = ::open("/dev/full", O_WRONLY);
    ::dup2(full, STDOUT_FILENO);
  });
  EXPECT_EQ(
      withoutDebug(result).errors,
      kTwoPages + "ERROR: the job cannot be written to the device: No space left on device\n");
  EXPECT_EQ(result.status, 1);
}

TEST_F(HandwrittenQueueTest, DeviceThatWentAway_FailsWithItsReason) {
  const RunResult result = filterWith({"7", "jane", "t", "1", "", "job.ps"}, [] {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return;
    ::close(ends[0]);
    ::dup2(ends[1], STDOUT_FILENO);
  });
  EXPECT_EQ(withoutDebug(result).errors,
            kTwoPages + "ERROR: the job cannot be written to the device: Broken pipe\n");
  EXPECT_EQ(result.status, 1);
}

TEST_F(HandwrittenQueueTest, CancelWhileWaitingForTheJob_EndsItWithTheTrailer) {
  RunningFilter running(folder(), [this] { enter(); });
  running.send("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n");
  const std::string begun = header("1", "A4") + "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n";
  EXPECT_EQ(running.read(begun.size()), begun);
  running.cancel();
  EXPECT_EQ(running.read(100), kExit);
  EXPECT_EQ(running.finish(), 0);
}

TEST_F(HandwrittenQueueTest, CancelBeforeTheJob_WritesNothing) {
  RunningFilter running(folder(), [this] { enter(); });
  // The filter catches the signal from its beginning on, but it has to begin.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  running.cancel();
  EXPECT_EQ(running.read(100), "");
  EXPECT_EQ(running.finish(), 0);
}

TEST_F(HandwrittenQueueTest, CancelWhileTheDeviceTakesNothing_EndsWithTheTrailer) {
  std::ofstream(folder() / "long.ps") << "%!PS\n" << std::string(1000000, 'x') << "\n";
  const auto longJob = [this] { enter(); };
  RunningFilter running(folder(), longJob);
  running.send("%!PS\n" + std::string(60000, 'x'));
  const std::string first = running.read(9);
  EXPECT_EQ(first, kExit);
  running.send(std::string(65536, 'x'));
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  running.cancel();
  const std::string rest = running.read(1000000);
  EXPECT_LT(rest.size(), 9U + 60000U + 65536U + 1000U);
  EXPECT_THAT(rest, testing::EndsWith(kExit));
  EXPECT_EQ(running.finish(), 0);
}

// 100 mm are 283.46 points; the width is available for the page size "Custom"
// only, which comes after it.
TEST_F(HandwrittenQueueTest, OptionThatNeedsAnotherOne_MayComeBeforeIt) {
  set("DRIVER_FEATURE_DESCRIPTION", OFFICE_DESCRIPTION);
  set("DRIVER_FEATURE_ROUTINES", OFFICE_ROUTINES);
  const RunResult result = filter("CustomPageWidth=100 PageSize=Custom");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.output, HasSubstr("<< /PageSize [283 842] >> setpagedevice\n"));
  EXPECT_EQ(filter("CustomPageWidth=100").status, 1);
}

TEST_F(HandwrittenQueueTest, CancelWithRoutines_EndsTheJobWithTheTrailer) {
  set("DRIVER_FEATURE_ROUTINES", ROUTINES_LIBRARY);
  RunningFilter running(folder(), [this] { enter(); });
  running.send("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n");
  const std::string begun = header("1", "A4") + "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n";
  EXPECT_EQ(running.read(begun.size()), begun);
  running.cancel();
  EXPECT_EQ(running.read(100), kExit);
  EXPECT_EQ(running.finish(), 0);
}

}  // namespace

// The built filter with options for the pages of a document, which the
// scheduler's own filter carries out.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <string>

#include "printing/page_work_fixture.h"
#include "printing/running_filter.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

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
      " has no effect, because the scheduler's filter /nowhere/filter/pstops is missing\n";
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

class PageWorkPipeTest : public PageWorkTest {
 protected:
  // The job of "job.ps" through a pipe must be that of the file.
  void expectSameAsFile() {
    const std::string options = "page-set=odd";
    const std::string expected = filterWith({"7", "jane", "t", "1", options, "job.ps"}).output;
    RunningFilter running(
        folder(), [this] { enter(); }, options);
    running.send(read("job.ps"));
    running.endInput();
    EXPECT_EQ(running.read(100000), expected);
    EXPECT_EQ(running.finish(), 0);
  }
};

TEST_F(PageWorkPipeTest, DocumentWithPages_IsReadAsAFileIs) {
  expectSameAsFile();
}

TEST_F(PageWorkPipeTest, DocumentWithoutPages_IsReadAsAFileIs) {
  write("job.ps", "%!\nshowpage\n");
  expectSameAsFile();
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

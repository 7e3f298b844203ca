// The built filter after the print scheduler's own pstops, which writes around
// a converted document what libcups makes of the queue's PPD.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "printing/filter_fixture.h"

namespace {

const std::string kPjl =
    "*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n"
    "*JCLToPSInterpreter: \"@PJL ENTER LANGUAGE = POSTSCRIPT <0A>\"\n"
    "*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A><1B>%-12345X\"\n";

// An option in job-control language, whose only code is the default.
std::string jclOption(const std::string& keyword, const std::string& code) {
  return "*JCLOpenUI *" + keyword + ": PickOne\n*OrderDependency: 10 JCLSetup *" + keyword +
         "\n*Default" + keyword + ": A\n*" + keyword + " A: \"" + code + "\"\n*JCLCloseUI: *" +
         keyword + "\n";
}

class ConvertedJobTest : public FilterTest {
 protected:
  void use(const std::string& lines) {
    write("printer.ppd", "*PPD-Adobe: \"4.3\"\n*NickName: \"Example\"\n" + lines);
    command({"import", "printer.ppd", "--output", "printer.xml"});
    command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "printer.xml", "--ppd", "printer.ppd",
             "--output", "queue.ppd"});
    set("PPD", "queue.ppd");
  }

  // What pstops makes of the file with the PPD.
  std::string converted(const std::string& file, const std::string& ppd,
                        const std::string& options) const {
    return runIn(folder(), PSTOPS, {"7", "jane", "A title", "1", options, file},
                 [&ppd] {
                   ::setenv("PPD", ppd.c_str(), 1);
                   ::unsetenv("CONTENT_TYPE");
                 })
        .output;
  }

  // What the filter makes of that job.
  RunResult filterConverted(const std::string& job, const std::string& options = "") {
    write("converted.ps", job);
    set("CONTENT_TYPE", "application/pdf");
    return withoutDebug(filterWith({"7", "jane", "A title", "1", options},
                                   [] { ::dup2(::open("converted.ps", O_RDONLY), STDIN_FILENO); }));
  }

  // The PPD has no commands in PostScript: the job must come out as pstops has
  // made it, with all that is around it once.
  void expectUnchanged(const std::string& front, const std::string& end,
                       const std::string& options = "") {
    const std::string job = converted("job.ps", "queue.ppd", options);
    EXPECT_THAT(job, testing::StartsWith(front + "%!PS-Adobe-3.0\n"));
    EXPECT_THAT(job, testing::EndsWith("%%EOF\n" + end));
    EXPECT_EQ(filterConverted(job, options), printed(job, "PAGE: 1 1\nPAGE: 2 1\n"));
  }
};

const std::string kJob = kExit +
                         "@PJL\n@PJL JOB NAME = \"A title\" DISPLAY = \"7 jane A title\"\n"
                         "@PJL SET USERNAME = \"jane\"\n";
const std::string kEnter = "@PJL ENTER LANGUAGE = POSTSCRIPT \n";
const std::string kPjlEnd = kExit + "@PJL\n@PJL RDYMSG DISPLAY = \"\"\n@PJL EOJ\n" + kExit;

TEST_F(ConvertedJobTest, FrontOfPjl_ComesOutOnce) {
  use(kPjl + jclOption("JCLDensity", "@PJL SET DENSITY=3<0A>"));
  expectUnchanged(kJob + "@PJL SET DENSITY=3\n" + kEnter, kPjlEnd);
}

TEST_F(ConvertedJobTest, FrontWithOtherLines_ComesOutOnce) {
  use(kPjl + jclOption("JCLScreen", "!R!CRES;SCRN0;EXIT;"));
  expectUnchanged(kJob + "!R!CRES;SCRN0;EXIT;" + kEnter, kPjlEnd);
}

TEST_F(ConvertedJobTest, FrontWithALongLine_ComesOutOnce) {
  const std::string code(200, 'x');
  std::string options;
  std::string line;
  for (const std::string name : {"A", "B", "C", "D", "E", "F", "G", "H"}) {
    options += jclOption("JCL" + name, code);
    line += code;
  }
  use(kPjl + options);
  expectUnchanged(kJob + line + kEnter, kPjlEnd);
}

TEST_F(ConvertedJobTest, FrontWithPercentSigns_ComesOutOnce) {
  use(kPjl + jclOption("JCLEcono", "@PJL SET ECONOMODE=%%"));
  expectUnchanged(kJob + "@PJL SET ECONOMODE=%%" + kEnter, kPjlEnd);
}

TEST_F(ConvertedJobTest, FrontThatLooksLikePostScript_ComesOutOnce) {
  use("*JCLBegin: \"%!MAKER *JOB BEGIN<0A>\"\n*JCLToPSInterpreter: \"%!MAKER *JOB BODY<0A>\"\n"
      "*JCLEnd: \"%!MAKER *JOB END<0A>\"\n" +
      jclOption("JCLSheet", "%!MAKER <09>SHEET AUTOMATIC<0A>"));
  expectUnchanged("%!MAKER *JOB BEGIN\n%!MAKER \tSHEET AUTOMATIC\n%!MAKER *JOB BODY\n",
                  "%!MAKER *JOB END\n");
}

TEST_F(ConvertedJobTest, CustomValueInTheFront_ComesOutOnce) {
  use(kPjl + jclOption("JCLOwner", "") +
      "*CustomJCLOwner True: \"@PJL SET OWNER=<22>\\1<22><0A>\"\n"
      "*ParamCustomJCLOwner Name: 1 string 0 20\n");
  expectUnchanged(kJob + "@PJL SET OWNER=\"Jane D\"\n" + kEnter, kPjlEnd,
                  "JCLOwner='Custom.Jane D'");
}

TEST_F(ConvertedJobTest, EndWithoutAFront_ComesOutOnce) {
  use("*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n"
      "*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A><1B>%-12345X\"\n");
  expectUnchanged("", kPjlEnd);
}

TEST_F(ConvertedJobTest, EndAlone_ComesOutOnce) {
  use("*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A>\"\n");
  const std::string end = kExit + "@PJL\n@PJL RDYMSG DISPLAY = \"\"\n@PJL EOJ\n";
  expectUnchanged("", end);
  EXPECT_EQ(withoutDebug(filter("")).output, read("job.ps") + end);
}

TEST_F(ConvertedJobTest, JclWithoutAnEnd_EndsAsLibcupsDoes) {
  use("*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n*JCLToPSInterpreter: \"@PJL ENTER LANGUAGE = "
      "POSTSCRIPT <0A>\"\n");
  EXPECT_EQ(filterConverted(converted("job.ps", "queue.ppd", "")).output,
            converted("job.ps", "printer.ppd", ""));
}

TEST_F(ConvertedJobTest, CodeOfExitServer_IsNotAFaultOfTheJob) {
  use("*OpenUI *Server: PickOne\n*OrderDependency: 10 ExitServer *Server\n*DefaultServer: A\n"
      "*Server A: \"serverdict begin 0 exitserver\"\n*CloseUI: *Server\n");
  const std::string code = "serverdict begin 0 exitserver";
  const std::string job = converted("job.ps", "queue.ppd", "");
  ASSERT_THAT(job, testing::StartsWith(code + "%!PS-Adobe-3.0\n"));
  std::string expected = job.substr(code.size());
  const std::string comments = "%%EndComments\n";
  expected.insert(expected.find(comments) + comments.size(), code + "\n");
  EXPECT_EQ(filterConverted(job), printed(expected, "PAGE: 1 1\nPAGE: 2 1\n"));
}

// Without a filter of its own libcups ends the printer's jobs with an end of
// file.
TEST_F(ConvertedJobTest, PpdWithoutJclAndFilter_EndsWithAnEndOfFile) {
  use("");
  const std::string job = converted("job.ps", "printer.ppd", "");
  EXPECT_THAT(job, testing::EndsWith("%%EOF\n\x04"));
  EXPECT_EQ(filterConverted(job).output, job);
  EXPECT_EQ(filterConverted(job.substr(0, job.size() - 1)).output, job);
  EXPECT_EQ(withoutDebug(filter("")).output, read("job.ps") + "\x04");
}

TEST_F(ConvertedJobTest, PpdWithAFilter_HasNoEndOfFile) {
  use("*cupsFilter: \"application/vnd.cups-postscript 0 another\"\n");
  EXPECT_EQ(withoutDebug(filter("")).output, read("job.ps"));
  // That of pstops passes.
  const std::string job = converted("job.ps", "queue.ppd", "");
  EXPECT_EQ(filterConverted(job).output, job);
}

TEST_F(ConvertedJobTest, PpdOfAQueue_KeepsItsEnd) {
  use("");
  command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "printer.xml", "--ppd", "queue.ppd",
           "--output", "again.ppd"});
  EXPECT_EQ(read("again.ppd"), read("queue.ppd"));
}

// Nothing announces the PJL to the printer; its end would be printed.
TEST_F(ConvertedJobTest, DescriptionWithoutPjl_HasNoFrontAndNoEnd) {
  write("printer.ppd", "*PPD-Adobe: \"4.3\"\n*NickName: \"Example\"\n" + kPjl);
  describe("printer.xml", {feature("IntEntry", "Weight", "DefaultValue='80'")});
  command({"--library", DRIVER_FEATURE_LIBRARY, "queue", "printer.xml", "--ppd", "printer.ppd",
           "--output", "queue.ppd"});
  set("PPD", "queue.ppd");
  EXPECT_EQ(withoutDebug(filter("")), printed(read("job.ps"), "PAGE: 1 1\nPAGE: 2 1\n"));
  const std::string job = converted("job.ps", "queue.ppd", "");
  const std::string front = kJob + kEnter;
  EXPECT_EQ(filterConverted(job).output,
            job.substr(front.size(), job.size() - front.size() - kPjlEnd.size()));
}

// A job that was printed to a file with the printer's own PPD.
TEST_F(ConvertedJobTest, JobWithItsOwnFront_GetsThisOnesInstead) {
  use(kPjl + jclOption("JCLScreen", "!R!CRES;SCRN0;EXIT;"));
  const std::string plain = read("job.ps");
  const std::string front = kJob + "!R!CRES;SCRN0;EXIT;" + kEnter;
  write("job.ps", kExit + "@PJL JOB\n!R!CRES;SCRN9;EXIT;" + kEnter + plain + kPjlEnd);
  EXPECT_EQ(withoutDebug(filter("")), printed(front + plain + kPjlEnd, "PAGE: 1 1\nPAGE: 2 1\n"));
}

TEST_F(ConvertedJobTest, ExitInBinaryData_LosesNothing) {
  use(kPjl);
  const std::string data = "(\n" + kExit + "\xff\xfe\n" + kExit + "@PJL\n\x01)\n";
  const std::string document =
      "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n" + data + "pop showpage\n%%EOF\n";
  write("job.ps", document);
  const std::string job = kJob + kEnter + document + kPjlEnd;
  EXPECT_EQ(withoutDebug(filter("")), printed(job, "PAGE: 1 1\n"));
  EXPECT_EQ(filterConverted(job), printed(job, "PAGE: 1 1\n"));
  EXPECT_EQ(filterConverted(kExit + "@PJL\n" + document + kExit), printed(job, "PAGE: 1 1\n"));
}

TEST_F(ConvertedJobTest, EpsFileWithAPicture_IsItsPostScript) {
  use("*cupsFilter: \"application/vnd.cups-postscript 0 another\"\n");
  const std::string document = read("job.ps");
  std::string header = "\xC5\xD0\xD3\xC6";
  header += std::string("\x20\0\0\0", 4) + static_cast<char>(document.size()) +
            static_cast<char>(document.size() >> 8) + std::string(22, '\0');
  write("job.ps", header + document + "TIFF");
  EXPECT_EQ(withoutDebug(filter("")), printed(document, "PAGE: 1 1\nPAGE: 2 1\n"));
  write("job.ps", header + document.substr(0, document.size() - 1));
  const RunResult cut = withoutDebug(filter(""));
  EXPECT_EQ(cut.status, 1);
  EXPECT_EQ(cut.errors,
            "PAGE: 1 1\nPAGE: 2 1\n"
            "ERROR: the EPS file ends before its PostScript does; send the whole file\n");
}

}  // namespace

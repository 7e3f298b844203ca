// PJL that a job brings along, and jobs that are not PostScript.
#include <gmock/gmock.h>

#include <string>

#include "programs/filter/job_structure_fixture.h"

namespace driver_feature::filter {
namespace {

TEST(JobStructure, PjlOfTheJobItself_IsTakenOff) {
  const std::string exit = "\x1b%-12345X";
  for (const std::string& front :
       {exit + "@PJL\r\n@PJL SET COPIES=3\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n", exit,
        "\x04" + exit + "@PJL\n\n@PJL ENTER LANGUAGE = POSTSCRIPT \n\x04", exit + exit + "\n"}) {
    for (const std::string& back : {exit, exit + "@PJL EOJ\r\n" + exit + "\n", "\x04" + exit}) {
      EXPECT_EQ(written(front + jobWith("") + back), writtenWith("")) << front << back;
    }
  }
  EXPECT_EQ(written("\x04" + jobWith("")), writtenWith(""));
}

// PJL ignores case; CUPS sends these jobs for PostScript.
TEST(JobStructure, LanguageInOtherLetters_IsPostScript) {
  const std::string exit = "\x1b%-12345X";
  for (const std::string language : {"ENTER LANGUAGE = PostScript", "ENTER LANGUAGE = Postscript",
                                     "Enter Language=postscript"}) {
    EXPECT_EQ(written(exit + "@PJL " + language + "\n" + jobWith("") + exit), writtenWith(""))
        << language;
  }
  EXPECT_EQ(written(exit + "@PJL enter language=pclxl\n" + jobWith("")), "");
}

TEST(JobStructure, PjlAfterAnyPart_IsTakenOff) {
  const std::string exit = "\x1b%-12345X";
  for (const std::string job :
       {"%!PS\n", "%!PS\ncode\n", "%!PS\n%%EndComments\n%%BeginDefaults\n",
        "%!PS\n%%EndComments\n%%BeginProlog\ncode\n",
        "%!PS\n%%EndComments\n%%BeginProlog\n%%EndProlog\n",
        "%!PS\n%%EndComments\n%%BeginProlog\n%%EndProlog\ncode\nshowpage\n",
        "%!PS\n%%BeginSetup\ncode\n", "%!PS\n%%Page: 1 1\n", "%!PS\n%%Page: 1 1\ncode\n"}) {
    EXPECT_EQ(written(exit + "@PJL\n" + job + exit + "@PJL EOJ\n" + exit), written(job)) << job;
  }
}

TEST(JobStructure, PjlWithoutAnExitInFront_IsTakenOff) {
  const std::string exit = "\x1b%-12345X";
  EXPECT_EQ(written("@PJL\n@PJL ENTER LANGUAGE=POSTSCRIPT\n" + jobWith("")), writtenWith(""));
  EXPECT_EQ(written("@PJL SET COPIES=2\r\n" + jobWith("") + exit), writtenWith(""));
}

TEST(JobStructure, RemarkOnALanguage_EntersNone) {
  const std::string exit = "\x1b%-12345X";
  const std::string remark = "@PJL COMMENT ENTER LANGUAGE = PCL\n";
  EXPECT_EQ(written(exit + remark + "@PJL ENTER LANGUAGE=POSTSCRIPT\n" + jobWith("") + exit +
                    remark + exit),
            writtenWith(""));
}

// Binary data may hold anything, such as another job for printers.
TEST(JobStructure, ExitInTheDataOfAJobWithPjl_Passes) {
  const std::string exit = "\x1b%-12345X";
  const std::string end = exit + "@PJL EOJ\n" + exit;
  for (const std::string& inside :
       {exit + "\n", exit + "abc\n", exit + "@PJL\n@PJL EOJ\n\nabc\n", exit + exit + "\xff\r\n",
        exit + std::string(2000, 'x') + "\n", "\x04" + exit + "\nabc\n" + exit + "\nabc\n",
        exit + "@PJL COMMENT ENTER LANGUAGE=PCL\nabc\n",
        exit + "@PJL COMMENT " + std::string(2000, 'x') + "\nabc\n"}) {
    EXPECT_EQ(written(exit + "@PJL\n" + jobWith(inside) + end), writtenWith(inside)) << inside;
    EXPECT_EQ(written(exit + "@PJL\n" + jobWith(inside)), writtenWith(inside)) << inside;
    EXPECT_FALSE(run(exit + "@PJL\n" + jobWith(inside) + end, 1).hasSecondDocument) << inside;
  }
}

TEST(JobStructure, TrailerLongerThanAnyIs_Passes) {
  const std::string exit = "\x1b%-12345X";
  std::string lines;
  for (int i = 0; i < 300; ++i) lines += "@PJL COMMENT " + std::to_string(i) + "\n";
  EXPECT_EQ(run(exit + "@PJL\n" + jobWith("") + exit + "\n" + lines, 4096).text,
            writtenWith("") + exit + "\n" + lines);
}

TEST(JobStructure, SecondDocumentAfterThePjl_IsReported) {
  const std::string exit = "\x1b%-12345X";
  const std::string first = exit + "@PJL\n%!PS\nshowpage\n";
  EXPECT_FALSE(run(first + exit + "@PJL EOJ\n" + exit, 1).hasSecondDocument);
  EXPECT_TRUE(run(first + exit + "@PJL\n%!PS\nshowpage\n" + exit, 1).hasSecondDocument);
  EXPECT_TRUE(run(first + exit + "%!PS\nshowpage\n" + exit, 1).hasSecondDocument);
  const std::string pcl = exit +
                          "@PJL ENTER LANGUAGE=PCL\n\x1b"
                          "E\n" +
                          exit + "abc\n";
  EXPECT_TRUE(run(first + pcl, 1).hasSecondDocument);
  EXPECT_EQ(run(first + pcl, 1).text, run(first, 1).text);
  EXPECT_FALSE(run(first + exit + "@PJL ENTER LANGUAGE=PCL\n" + exit, 1).hasSecondDocument);
}

TEST(JobStructure, ExitInAJobWithoutPjl_Passes) {
  const std::string inside = "\x1b%-12345X@PJL\n";
  EXPECT_EQ(written(jobWith(inside)), writtenWith(inside));
}

TEST(JobStructure, WhatIsNoPostScript_IsDropped) {
  const std::string exit = "\x1b%-12345X";
  for (const std::string& job :
       {std::string("%PDF-1.4\n%!PS\n"), std::string("hello\n%!PS\n"),
        std::string("@PJL ENTER LANGUAGE=PCL\n%!PS\n"), std::string("@PJL\nhello\n%!PS\n"),
        exit + "@PJL ENTER LANGUAGE=PCL\n%!PS\n", exit + "E\n", std::string(5000, 'x')}) {
    EXPECT_EQ(written(job), "") << job;
    EXPECT_EQ(run(job, 1).kind, JobStructure::Kind::kNotPostScript) << job;
  }
  for (const std::string job : {"", "\x04", "\n\n"}) {
    EXPECT_EQ(run(job, 1).kind, JobStructure::Kind::kUnknown) << job;
  }
  EXPECT_EQ(run("%!", 1).kind, JobStructure::Kind::kPostScript);
}

}  // namespace
}  // namespace driver_feature::filter

#include "host/ppd/queue/queue_lines.h"

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <cstdio>
#include <memory>

#include "support/problem_text.h"

namespace driver_feature::ppd {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(QueueLines, WholeRequest_HasALineForEachPart) {
  const auto lines = queueLines({"/d/a b.xml", "/l.so", {"/r.so", "/s.so"}, true});
  ASSERT_EQ(problemText(lines), "");
  EXPECT_THAT(
      *lines,
      ElementsAre("*cupsFilter: \"application/postscript 0 driver-feature-filter\"",
                  "*cupsFilter: \"application/vnd.cups-postscript 100 "
                  "driver-feature-filter\"",
                  "*DriverFeatureDescription: \"/d/a b.xml\"", "*DriverFeatureLibrary: \"/l.so\"",
                  "*DriverFeatureRoutines: \"/r.so\"", "*DriverFeatureRoutines: \"/s.so\"",
                  "*DriverFeatureRefusedValue: \"default\""));
}

TEST(QueueLines, PlainRequest_NamesNoLibraryAndFails) {
  const auto lines = queueLines({"/a.xml", "", {}, false});
  ASSERT_EQ(problemText(lines), "");
  ASSERT_EQ(lines->size(), 4U);
  EXPECT_EQ((*lines)[3], "*DriverFeatureRefusedValue: \"fail\"");
}

TEST(QueueLines, PathThatAPpdCannotHold_IsRefused) {
  for (const std::string path : {"/a\"b", "/a\nb"}) {
    EXPECT_EQ(problemText(queueLines({"/d.xml", path, {}, false})),
              path +
                  ": a PPD cannot hold this path, because of a quotation mark or a "
                  "control character in it; give the file another name");
  }
}

// libcups refuses a PPD with a line of more than 255 bytes.
TEST(QueueLines, PathThatMakesALineTooLong_IsRefused) {
  const std::string longest = "/" + std::string(225, 'a');
  const auto lines = queueLines({longest, "", {}, false});
  ASSERT_EQ(problemText(lines), "");
  EXPECT_EQ((*lines)[2].size(), 255U);
  EXPECT_EQ(problemText(queueLines({longest + "a", "", {}, false})),
            longest +
                "a: a PPD cannot hold this path, because its lines have 255 bytes at "
                "most; give the file a shorter path");
}

TEST(QueueLines, OtherFiltersLines_AreReplaced) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    const std::string ppd = "*PPD-Adobe: \"4.3\"" + end + "*% a note" + end +
                            "*cupsFilter: \"x 0 y\"" + end + "*cupsFilter2: \"x y 0 z\"" + end +
                            "*CupsFilter2 : \"x y 0 z\"" + end + "*DriverFeatureLibrary: \"/l\"" +
                            end + "*cupsFilterLike: 1" + end + end + "*End";
    EXPECT_EQ(withQueueLines(ppd, {"*a: 1", "*b: 2"}).text,
              "*PPD-Adobe: \"4.3\"" + end + "*a: 1" + end + "*b: 2" + end + "*% a note" + end +
                  "*cupsFilterLike: 1" + end + end + "*End");
  }
}

TEST(QueueLines, ValuesOfSeveralLines_AreReplacedWhole) {
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\"\n*cupsFilter: \"x 0\ny\"\n*End\n*cupsFilter2: "
                           "\"x y 0\n\nz\"\n*NickName: \"n\"\n",
                           {"*a: 1"})
                .text,
            "*PPD-Adobe: \"4.3\"\n*a: 1\n*NickName: \"n\"\n");
}

TEST(QueueLines, LinesWithinOtherValues_Stay) {
  const std::string code = "*Tray A: \"\n*cupsFilter: x\n*End\n*DriverFeature\n\"\n*End\n";
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\"\n" + code, {"*a: 1"}).text,
            "*PPD-Adobe: \"4.3\"\n*a: 1\n" + code);
}

TEST(QueueLines, NamesOfChoices_Stay) {
  const std::string names = "*DriverFeatureChoice: \"Duplex None Off\"\n";
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\"\n" + names, {"*a: 1"}).text,
            "*PPD-Adobe: \"4.3\"\n*a: 1\n" + names);
}

TEST(QueueLines, FirstStatementOfSeveralLines_StaysInFront) {
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\n\"\n*b: 2\n", {"*a: 1"}).text,
            "*PPD-Adobe: \"4.3\n\"\n*a: 1\n*b: 2\n");
}

TEST(QueueLines, FileOfOneLine_GetsALineEnd) {
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\"", {"*a: 1"}).text, "*PPD-Adobe: \"4.3\"\n*a: 1\n");
}

TEST(QueueLines, Origins_AreTheLinesOfThePrintersPpd) {
  EXPECT_THAT(withQueueLines("*PPD-Adobe: \"4.3\"\n*b: \"\n\"\n*cupsFilter: \"x\ny\"\n*End\n*c: 3",
                             {"*a: 1", "*a: 2"})
                  .origins,
              ElementsAre(1, 0, 0, 2, 3, 7));
}

class MediaLinesTest : public testing::Test {
 protected:
  static std::vector<std::string> linesFor(const std::string& more) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    std::fputs(("*PPD-Adobe: \"4.3\"\n" + more).c_str(), file.get());
    std::rewind(file.get());
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(ppdOpen(file.get()), &ppdClose);
    if (!ppd) return {"no PPD"};
    return mediaLines(*ppd);
  }
};

TEST_F(MediaLinesTest, PpdWithoutFilter_GetsARule) {
  EXPECT_THAT(linesFor(""), ElementsAre("*RequiresPageRegion All: False"));
  EXPECT_THAT(linesFor("*RequiresPageRegion Upper: True\n"),
              ElementsAre("*RequiresPageRegion All: False"));
}

TEST_F(MediaLinesTest, PpdWithFilterOrRule_StaysAsItIs) {
  EXPECT_THAT(linesFor("*cupsFilter: \"a/b 0 c\"\n"), IsEmpty());
  EXPECT_THAT(linesFor("*cupsFilter2: \"a/b a/c 0 d\"\n"), IsEmpty());
  EXPECT_THAT(linesFor("*RequiresPageRegion All: True\n"), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::ppd

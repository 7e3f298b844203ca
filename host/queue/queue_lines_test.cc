#include "host/queue/queue_lines.h"

#include <gmock/gmock.h>

namespace driver_feature {
namespace {

using testing::ElementsAre;

TEST(QueueLines, WholeRequest_HasALineForEachPart) {
  std::string problem;
  EXPECT_THAT(
      queueLines({"/d/a b.xml", "/l.so", {"/r.so", "/s.so"}, true}, problem),
      ElementsAre("*cupsFilter: \"application/postscript 0 driver-feature-filter\"",
                  "*cupsFilter: \"application/vnd.cups-postscript 100 "
                  "driver-feature-filter\"",
                  "*DriverFeatureDescription: \"/d/a b.xml\"", "*DriverFeatureLibrary: \"/l.so\"",
                  "*DriverFeatureRoutines: \"/r.so\"", "*DriverFeatureRoutines: \"/s.so\"",
                  "*DriverFeatureRefusedValue: \"default\""));
  EXPECT_EQ(problem, "");
}

TEST(QueueLines, PlainRequest_NamesNoLibraryAndFails) {
  std::string problem;
  const auto lines = queueLines({"/a.xml", "", {}, false}, problem);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[3], "*DriverFeatureRefusedValue: \"fail\"");
}

TEST(QueueLines, PathThatAPpdCannotHold_IsRefused) {
  for (const std::string path : {"/a\"b", "/a\nb"}) {
    std::string problem;
    queueLines({"/d.xml", path, {}, false}, problem);
    EXPECT_EQ(problem, path +
                           ": a PPD cannot hold this path, because of a quotation mark or a "
                           "control character in it; give the file another name");
  }
}

// libcups refuses a PPD with a line of more than 255 bytes.
TEST(QueueLines, PathThatMakesALineTooLong_IsRefused) {
  const std::string longest = "/" + std::string(225, 'a');
  std::string problem;
  const auto lines = queueLines({longest, "", {}, false}, problem);
  EXPECT_EQ(problem, "");
  EXPECT_EQ(lines[2].size(), 255U);
  queueLines({longest + "a", "", {}, false}, problem);
  EXPECT_EQ(problem, longest +
                         "a: a PPD cannot hold this path, because its lines have 255 bytes at "
                         "most; give the file a shorter path");
}

TEST(QueueLines, OtherFiltersLines_AreReplaced) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    const std::string ppd = "*PPD-Adobe: \"4.3\"" + end + "*% a note" + end +
                            "*cupsFilter: \"x 0 y\"" + end + "*cupsFilter2: \"x y 0 z\"" + end +
                            "*DriverFeatureLibrary: \"/l\"" + end + "*cupsFilterLike: 1" + end +
                            end + "*End";
    EXPECT_EQ(withQueueLines(ppd, {"*a: 1", "*b: 2"}),
              "*PPD-Adobe: \"4.3\"" + end + "*a: 1" + end + "*b: 2" + end + "*% a note" + end +
                  "*cupsFilterLike: 1" + end + end + "*End");
  }
}

TEST(QueueLines, FileOfOneLine_GetsALineEnd) {
  EXPECT_EQ(withQueueLines("*PPD-Adobe: \"4.3\"", {"*a: 1"}), "*PPD-Adobe: \"4.3\"\n*a: 1\n");
}

}  // namespace
}  // namespace driver_feature

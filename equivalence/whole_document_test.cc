#include "equivalence/whole_document.h"

#include <gtest/gtest.h>

namespace driver_feature::equivalence {

namespace {

const std::string kDocument = kWholeDocument;

std::string replaced(std::string text, const std::string& old, const std::string& by) {
  const std::size_t at = text.find(old);
  EXPECT_NE(at, std::string::npos) << old;
  return at == std::string::npos ? text : text.replace(at, old.size(), by);
}

TEST(WholeDocument, TextsOfPstops_AreRemoved) {
  std::string job = replaced(kDocument, "%%Pages: (atend)",
                             "%RBINumCopies: 1\n%%Requirements: duplex\n%%Pages: (atend)");
  job = replaced(job, "%%BeginSetup\n",
                 "%%BeginSetup\n% Disable CTRL-D as ...\nuserdict dup(\\004)cvn ...\nfeature\n"
                 "% x y w h ESPrc - ...\nmore\nuserdict/ESPwl{}bind put\n");
  ppd_file_t ppd{};
  EXPECT_EQ(withoutPstopsTexts(job, ppd),
            replaced(kDocument, "%%BeginSetup\n", "%%BeginSetup\nfeature\n"));
  EXPECT_EQ(withoutPstopsTexts(kDocument, ppd), kDocument);
}

TEST(WholeDocument, HalfATextOfPstops_Stays) {
  const std::string job = replaced(kDocument, "%%EndSetup", "% x y w h ESPrc - ...\n%%EndSetup");
  EXPECT_EQ(withoutPstopsTexts(job, ppd_file_t{}), job);
}

TEST(WholeDocument, EndOfFile_IsRemovedWhereAnotherFilterFollows) {
  ppd_file_t ppd{};
  EXPECT_EQ(withoutPstopsTexts(kDocument + "\x04", ppd), kDocument + "\x04");
  ppd.num_filters = 1;
  EXPECT_EQ(withoutPstopsTexts(kDocument + "\x04", ppd), kDocument);
  std::string end = "end";
  ppd.jcl_end = end.data();
  EXPECT_EQ(withoutPstopsTexts(kDocument + "\x04", ppd), kDocument + "\x04");
}

TEST(WholeDocument, ExpectedOfAConvertedJob_HasFrontSectionsAndEndOfTheDirectOne) {
  std::string direct = replaced(kDocument, "%%EndComments\n", "%%EndComments\nexit\n");
  direct = replaced(direct, "%%BeginProlog\n", "%%BeginProlog\nprolog\n");
  direct = replaced(direct, "%%BeginSetup\n", "%%BeginSetup\nsetup\n");
  direct = replaced(direct, "1 1\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n",
                    "1 1\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\npage\n");
  const std::string page = "2 2\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n";
  const std::string expected = replaced(direct, page, page + "page\n");
  EXPECT_EQ(expectedOfConverted("front" + kDocument + "end", "FRONT" + direct + "END"),
            "FRONT" + expected + "END");
  // What pstops has written elsewhere is kept.
  EXPECT_EQ(expectedOfConverted(replaced(kDocument, "%%EndSetup", "more\n%%EndSetup"), direct),
            replaced(expected, "%%EndSetup", "more\n%%EndSetup"));
}

TEST(WholeDocument, EndOfFileForAnotherFilter_IsKept) {
  EXPECT_EQ(expectedOfConverted(kDocument + "\x04", kDocument), kDocument + "\x04");
  EXPECT_EQ(expectedOfConverted(kDocument + "\x04", kDocument + "END"), kDocument + "END");
  EXPECT_EQ(expectedOfConverted(kDocument + "\x04", kDocument + "\x04"), kDocument + "\x04");
}

TEST(WholeDocument, OtherJobs_HaveNoExpectation) {
  EXPECT_EQ(expectedOfConverted("", kDocument), "");
  EXPECT_EQ(expectedOfConverted(kDocument, ""), "");
  EXPECT_EQ(expectedOfConverted(kDocument, replaced(kDocument, "/pageText { 72", "")), "");
}

TEST(WholeDocument, JobPatch_IsRemovedOnce) {
  const std::string patch = "%%BeginFeature: *JobPatchFile 1\npatch\n%%EndFeature\n";
  const std::string begin = "%%BeginProlog\n";
  ppd_file_t ppd{};
  std::string text = "patch";
  const std::string job = replaced(kDocument, begin, begin + patch + patch);
  EXPECT_EQ(withoutJobPatch(job, ppd), job);
  ppd.patches = text.data();
  EXPECT_EQ(withoutJobPatch(job, ppd), replaced(kDocument, begin, begin + patch));
}

TEST(WholeDocument, ExpectedOfAConvertedJob_HasWhatPstopsDidToThePagesOnce) {
  const std::string page = "%%BeginPageSetup\n";
  const std::string code = "[{\ncode\n} stopped cleartomark\n";
  const std::string mirrored = replaced(kDocument, page, page + code + "-1 1 scale\n");
  std::string expected = kDocument;
  expected.replace(expected.rfind(page), page.size(), page + code);
  expected = replaced(expected, page, page + code + code + "-1 1 scale\n");
  EXPECT_EQ(expectedOfConverted(mirrored, mirrored), expected);
}

}  // namespace

}  // namespace driver_feature::equivalence

#include "golden/described_printer.h"

#include <map>

#include "XMLDocument.h"
#include "XMLParser.h"

#include "golden/pjl_checker.h"

namespace {

TEST_P(DescribedPrinterTest, Pjl_EveryValueOfEveryFeature_IsAGoodHeader) {
  for (const Variation& variation : variations()) {
    const std::string header = emit("pjl", variation.settings);
    EXPECT_EQ(findPjlFault(header), "") << variation.label() << "\n" << header;
  }
}

TEST_P(DescribedPrinterTest, PostScript_EveryValueOfEveryFeature_RunsWithoutAnError) {
  std::vector<PostScriptCase> cases;
  for (const Variation& variation : variations()) {
    cases.push_back({variation.label(), emit("ps", variation.settings)});
  }
  EXPECT_EQ(findFaults(cases), "");
}

TEST_P(DescribedPrinterTest, Ticket_EveryValueOfEveryFeature_IsXml) {
  for (const Variation& variation : variations()) {
    XMLProblem problem;
    const auto ticket =
        XMLDocument::parseText(emit("ticket", variation.settings), "ticket", problem);
    ASSERT_TRUE(ticket) << variation.label() << ": " << problem.text;
    std::string tag;
    pParserInstance->tagName(ticket->root(), tag);
    EXPECT_EQ(tag, "JobTicket") << variation.label();
  }
}

// A value that changes nothing, or that does what another one does, is a slip
// of the description.
TEST_P(DescribedPrinterTest, EveryValueOfAFeature_GivesItsOwnOutput) {
  std::map<std::string, std::map<std::string, std::string>> labels;
  for (const Variation& variation : variations()) {
    std::string output;
    for (const char* form : {"ps", "pjl", "ticket"}) output += emit(form, variation.settings);
    const auto [known, isNew] = labels[variation.feature].emplace(output, variation.label());
    EXPECT_TRUE(isNew) << variation.label() << " gives what " << known->second << " gives";
  }
}

TEST_P(DescribedPrinterTest, Variations_HoldAllFeatureTypes) {
  std::map<std::string, int> counts;
  for (const Variation& variation : variations()) ++counts[variation.feature];
  // Counted by hand: the features that hold a value.
  EXPECT_EQ(counts.size(), GetParam() == "office_laser" ? 1U + 38U : 1U + 18U);
  EXPECT_EQ(counts["Copies"], 2);
  EXPECT_EQ(counts["JobName"], GetParam() == "office_laser" ? 1 + 1 : 1 + 3);
  EXPECT_EQ(counts["Resolution"], 2);
}

INSTANTIATE_TEST_SUITE_P(Shipped, DescribedPrinterTest,
                         testing::Values("office_laser", "label_printer"),
                         [](const auto& row) { return row.param; });

class OfficeLaserTest : public DescribedPrinterTest {};

TEST_P(OfficeLaserTest, PostScript_ChangesThePageDevice) {
  const std::string settings =
      emit("ps", {"Copies=7", "PageSize=A3", "Resolution=1200dpi", "MediaType=CardStock",
                  "MediaWeight=200", "JobName=100% done, isn't it?", "InputSlot=Tray2"});
  EXPECT_EQ(print(settings +
                  "[ /NumCopies /PageSize /HWResolution /MediaType /MediaWeight /MediaPosition ]\n"
                  "{ currentpagedevice exch get == } forall\n"
                  "currentuserparams /JobName get ==\n"),
            success("7\n[842 1191]\n[1200 1200]\n(Card Stock)\n200\n2\n(100% done, isn't it?)\n"));
}

TEST_P(OfficeLaserTest, PostScript_Gamma_IsInForceAtTheEnd) {
  EXPECT_EQ(print(emit("ps", {"Gamma=2"}) + "0.5 currenttransfer exec ==\n"), success("0.25\n"));
}

TEST_P(OfficeLaserTest, PostScript_CustomPageSize_IsConvertedToPoints) {
  // 254 mm are 10 inches, 127 mm are 5.
  const std::string settings =
      emit("ps", {"PageSize=Custom", "CustomPageWidth=127", "CustomPageHeight=254"});
  EXPECT_EQ(print(settings + "currentpagedevice /PageSize get ==\n"), success("[360 720]\n"));
}

TEST_P(OfficeLaserTest, PostScript_Watermark_IsPaintedInTheMiddleOfThePage) {
  EXPECT_EQ(findPaintedBox(emit("ps", {})), "0 0 0 0");
  const struct {
    const char* size;
    double width;
    double height;
  } kRows[] = {{"PageSize=A4", 595, 842}, {"PageSize=A3", 842, 1191}};
  for (const auto& row : kRows) {
    const std::string box =
        findPaintedBox(emit("ps", {row.size, "Watermark=Custom", "WatermarkText=HHHH",
                                   "WatermarkAngle=0", "WatermarkSize=100"}));
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
    ASSERT_EQ(std::sscanf(box.c_str(), "%d %d %d %d", &left, &bottom, &right, &top), 4) << box;
    EXPECT_NEAR(left + right, row.width, 4) << row.size;
    EXPECT_NEAR(bottom + top, row.height, 6) << row.size;
    // A capital H of Helvetica Bold is 0.722 of its size wide, and 0.718 high.
    EXPECT_NEAR(right - left, 4 * 72.2, 16) << row.size;
    EXPECT_NEAR(top - bottom, 71.8, 4) << row.size;
  }
}

INSTANTIATE_TEST_SUITE_P(Shipped, OfficeLaserTest, testing::Values("office_laser"),
                         [](const auto& row) { return row.param; });

}  // namespace

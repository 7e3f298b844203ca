#include "programs/printer/device_state.h"

#include <gtest/gtest.h>

#include "programs/printer/pjl_status.h"

namespace driver_feature::printer {
namespace {

using Words = std::vector<std::string>;

TEST(DeviceState, Reasons_AreAddedRemovedAndReplaced) {
  Words reasons;
  takeState(reasons, "+connecting-to-device");
  takeState(reasons, "+media-empty-error, cover-open-error");
  EXPECT_EQ(reasons, (Words{"connecting-to-device", "media-empty-error", "cover-open-error"}));
  takeState(reasons, "+media-empty-error");
  takeState(reasons, "-connecting-to-device,media-empty-error");
  EXPECT_EQ(reasons, (Words{"cover-open-error"}));
  takeState(reasons, "toner-low-warning");
  EXPECT_EQ(reasons, (Words{"toner-low-warning"}));
  takeState(reasons, "none");
  EXPECT_EQ(reasons, Words());
}

TEST(DeviceState, ReasonsThatAreNoKeywords_AreIgnored) {
  Words reasons;
  takeState(reasons, "+No Paper,");
  takeState(reasons, "+" + std::string(300, 'a'));
  EXPECT_EQ(reasons, Words());
  for (int i = 0; i < 30; ++i) takeState(reasons, "+reason-" + std::to_string(i));
  EXPECT_EQ(reasons.size(), 20U);
}

TEST(DeviceState, Supplies_AreThoseOfTheMarkers) {
  std::vector<Supply> supplies;
  takeSupplies(supplies,
               "marker-levels=50,-1 marker-types=toner,waste-toner marker-colors=#000000,none");
  takeSupplies(supplies, "marker-names='\"Black, big\",Waste;box' other=1");
  ASSERT_EQ(supplies.size(), 2U);
  EXPECT_EQ(supplyText(supplies[0], 1),
            "index=1;class=supplyThatIsConsumed;type=toner;unit=percent;maxcapacity=100;level=50;"
            "colorantname=#000000;");
  EXPECT_EQ(supplyText(supplies[1], 2),
            "index=2;class=receptacleThatIsFilled;type=waste-toner;unit=percent;maxcapacity=100;"
            "level=-2;colorantname=none;");
  EXPECT_EQ(supplies[0].name, "Black, big");
  EXPECT_EQ(supplies[1].name, "Waste,box");
}

TEST(PjlStatus, Codes_AreReasonsOfIpp) {
  const struct {
    int code;
    const char* reason;
  } kCases[] = {{10001, ""},
                {10006, "toner-low-warning"},
                {11203, "media-empty-warning"},
                {40021, "cover-open-error"},
                {40022, "media-jam-error"},
                {41213, "media-needed-error"},
                {50000, "other-error"},
                {60000, ""}};
  for (const auto& one : kCases) EXPECT_EQ(reasonOfCode(one.code), one.reason) << one.code;
}

TEST(PjlStatus, Changes_AreLinesForTheServer) {
  PjlStatus status;
  EXPECT_EQ(status.take("@PJL INFO STATUS\r\nCODE=10001\r\nDISPLAY=\"READY\"\r\nONL"),
            "INFO: READY\n");
  EXPECT_EQ(
      status.take("INE=TRUE\r\n\f@PJL USTATUS DEVICE\r\nCODE=40021\r\nDISPLAY=\"DOOR\033\"\r\n\f"),
      "STATE: +cover-open-error\nINFO: DOOR\\x1b\n");
  EXPECT_EQ(status.take("CODE=40021\r\n"), "");
  EXPECT_EQ(status.take("CODE=41000\r\n"),
            "STATE: -cover-open-error\nSTATE: +media-needed-error\n");
  EXPECT_EQ(status.take("CODE=x\r\nCODE=10001\r\n"), "STATE: -media-needed-error\n");
}

TEST(PjlStatus, BytesWithoutALineEnd_AreNotKept) {
  PjlStatus status;
  EXPECT_EQ(status.take(std::string(5000, 'x')), "");
  EXPECT_EQ(status.take("\r\nCODE=40021\r\n"), "STATE: +cover-open-error\n");
}

}  // namespace
}  // namespace driver_feature::printer

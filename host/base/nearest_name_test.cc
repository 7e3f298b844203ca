#include "host/base/nearest_name.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

struct NearRow {
  const char* wanted;
  const char* nearest;
};

const std::vector<std::string> kNames = {"Copies",    "Collate",    "Duplex",    "PageSize",
                                         "PaperType", "Resolution", "TonerSave", "X"};

TEST(NearestNameTest, NearestName_ManyMistakes_ReturnsTheLikeliest) {
  constexpr NearRow kRows[] = {
      {"Copies", "Copies"},         // Itself.
      {"copies", "Copies"},         // Case.
      {"COLLATE", "Collate"},       // Case of every letter.
      {"Copie", "Copies"},          // One missing.
      {"Coppies", "Copies"},        // One too many.
      {"Dulpex", "Duplex"},         // Neighbours swapped.
      {"Dublex", "Duplex"},         // One replaced.
      {"PagSiz", "PageSize"},       // Two missing, of six.
      {"Pagesizes", "PageSize"},    // Case, and one too many.
      {"Resoltuon", "Resolution"},  // Swapped and missing.
      {"x", "X"},                   // A change of case is near enough.
  };
  for (const NearRow& row : kRows) {
    EXPECT_EQ(nearestName(row.wanted, kNames), row.nearest) << row.wanted;
  }
}

TEST(NearestNameTest, NearestName_TooManyMistakes_ReturnsNothing) {
  EXPECT_EQ(nearestName("Y", kNames), std::nullopt);  // Another letter is another name.
  EXPECT_EQ(nearestName("", kNames), std::nullopt);
  EXPECT_EQ(nearestName("Watermark", kNames), std::nullopt);
  EXPECT_EQ(nearestName("Dup", kNames), std::nullopt);  // Three missing are more than a third.
}

TEST(NearestNameTest, NearestName_SeveralAsNear_ReturnsTheFirst) {
  EXPECT_EQ(nearestName("Tray0", {"Tray1", "Tray2"}), "Tray1");
  EXPECT_EQ(nearestName("Tray0", {"Tray2", "Tray1"}), "Tray2");
}

TEST(NearestNameTest, NearestName_OnlyCaseDiffers_BeatsAnotherLetter) {
  EXPECT_EQ(nearestName("trayA", {"trayB", "TrayA"}), "TrayA");
}

TEST(NearestNameTest, SurelyMeant_OneChangeFromOneName_IsThatName) {
  EXPECT_EQ(surelyMeant("IntMinValu", {"IntMinValue", "IntMaxValue"}), "IntMinValue");
  EXPECT_EQ(surelyMeant("defaultvalue", {"DefaultValue"}), "DefaultValue");
  EXPECT_EQ(surelyMeant("Naem", {"Name", "Name"}), "Name");
}

TEST(NearestNameTest, SurelyMeant_AnythingElse_IsNotSure) {
  EXPECT_EQ(surelyMeant("TrayA", {"TrayB", "TrayC"}), std::nullopt);  // Two.
  EXPECT_EQ(surelyMeant("Tray0", {"Tray1"}), std::nullopt);           // A number.
  EXPECT_EQ(surelyMeant("Off", {"Of"}), std::nullopt);                // Too short.
  EXPECT_EQ(surelyMeant("IntMnVale", {"IntMinValue"}), std::nullopt);
  EXPECT_EQ(surelyMeant("Copies", {}), std::nullopt);
}

TEST(NearestNameTest, NearestName_NoNames_ReturnsNothing) {
  EXPECT_EQ(nearestName("Copies", {}), std::nullopt);
}

}  // namespace

}  // namespace driver_feature::host

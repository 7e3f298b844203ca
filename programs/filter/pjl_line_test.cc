#include "programs/filter/pjl_line.h"

#include <gmock/gmock.h>

namespace driver_feature::filter {
namespace {

TEST(PjlLine, EnteredLanguage_IsThatOfTheCommandAlone) {
  EXPECT_EQ(enteredLanguage("@PJL ENTER LANGUAGE=POSTSCRIPT"), "POSTSCRIPT");
  EXPECT_EQ(enteredLanguage("@PJL  enter\tlanguage = pclxl "), "PCLXL ");
  EXPECT_EQ(enteredLanguage("@PJL ENTER LANGUAGE"), "");
  EXPECT_EQ(enteredLanguage("@PJL COMMENT ENTER LANGUAGE=PCL"), "");
  EXPECT_EQ(enteredLanguage("@PJL SET PERSONALITY=PCL"), "");
  EXPECT_EQ(enteredLanguage("ENTER LANGUAGE=PCL"), "");
  EXPECT_EQ(enteredLanguage(""), "");
}

TEST(PjlLine, OtherLanguages_AreAllButPostScript) {
  EXPECT_FALSE(entersOtherLanguage("@PJL ENTER LANGUAGE = PostScript"));
  EXPECT_TRUE(entersOtherLanguage("@PJL ENTER LANGUAGE = PCL"));
  EXPECT_FALSE(entersOtherLanguage("@PJL COMMENT ENTER LANGUAGE = PCL"));
}

TEST(PjlLine, Exits_AreTakenFromTheFront) {
  EXPECT_EQ(withoutExits("\x04\x1b%-12345X\x1b%-12345X@PJL"), "@PJL");
  EXPECT_TRUE(beginsWithExit("\x04\x1b%-12345X"));
  EXPECT_FALSE(beginsWithExit(" \x1b%-12345X"));
}

}  // namespace
}  // namespace driver_feature::filter

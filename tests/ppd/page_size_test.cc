// The page size, which libcups writes as PageSize, as PageRegion or not at
// all, by the paper's source.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

class PageSizeTest : public PpdTest {
 protected:
  PageSizeTest() { errors_ = import("pages"); }

  // The features as libcups has marked the options.
  Settings marked() {
    Settings settings;
    for (const char* keyword : {"PageSize", "PageRegion", "InputSlot", "ManualFeed"}) {
      settings.emplace_back(keyword, ppd_.choice(keyword));
    }
    return settings;
  }

  std::string errors_;
  MarkedPpd ppd_{sourceFile("pages")};
};

TEST_F(PageSizeTest, Import_ChoiceThatLibcupsCannotMark_IsNamed) {
  EXPECT_EQ(errors_,
            "driver-feature: pages.ppd: not carried over: choice *PageSize a4: libcups takes "
            "another choice of the option for it\n"
            "driver-feature: pages.ppd: not carried over: 4 other keywords; --verbose names "
            "each\n");
  EXPECT_THAT(run({"import", "pages.ppd", "-v"}).errors,
              testing::EndsWith("not carried over: keywords: *NickName, "
                                "*RequiresPageRegion (2), *DefaultPaperDimension\n"));
}

TEST_F(PageSizeTest, Defaults_AreWhatLibcupsMarks) {
  EXPECT_EQ(marked(), (Settings{{"PageSize", "A4"},
                                {"PageRegion", "not set"},
                                {"InputSlot", "Auto"},
                                {"ManualFeed", "False"}}));
  const RunResult result = run({"show", "pages.xml"});
  EXPECT_EQ(result.output,
            "NAME        TYPE         VALUE    AVAILABILITY  CHOICES AND LIMITS\n"
            "InputSlot   MultiSelect  Auto     available     Auto, Manual, Cassette, not set\n"
            "ManualFeed  MultiSelect  False    available     True, False, not set\n"
            "PageRegion  MultiSelect  not set  available     A4, A5, not set\n"
            "PageSize    MultiSelect  A4       available     A4, A5, not set\n"
            "\n"
            "GROUP             KIND    IN  RECORDS  MEMBERS\n"
            "Section.AnySetup  static  -   -        InputSlot, ManualFeed, PageSize, PageRegion\n");
}

TEST_F(PageSizeTest, SourceThatRequiresARegion_RegionIsWritten) {
  ppd_.mark("PageSize", "A5");
  ppd_.mark("InputSlot", "Manual");
  const Settings settings = marked();
  EXPECT_EQ(settings, (Settings{{"PageSize", "not set"},
                                {"PageRegion", "A5"},
                                {"InputSlot", "Manual"},
                                {"ManualFeed", "not set"}}));
  const std::string text = section(postScript("pages", settings), "AnySetup");
  EXPECT_EQ(text,
            "[{\n%%BeginFeature: *InputSlot Manual\n/manual feed\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "[{\n%%BeginFeature: *PageRegion A5\n420 595 region\n"
            "%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_ANY));
}

TEST_F(PageSizeTest, SourceThatSetsThePage_NeitherIsWritten) {
  ppd_.mark("InputSlot", "Cassette");
  const Settings settings = marked();
  const std::string text = section(postScript("pages", settings), "AnySetup");
  EXPECT_EQ(text,
            "[{\n%%BeginFeature: *InputSlot Cassette\n/cassette feed\n"
            "%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(text, ppd_.text(PPD_ORDER_ANY));
}

TEST_F(PageSizeTest, ManualFeed_TakesThePlaceOfTheSource) {
  ppd_.mark("ManualFeed", "True");
  const Settings settings = marked();
  EXPECT_EQ(settings[2].second, "not set");
  EXPECT_EQ(section(postScript("pages", settings), "AnySetup"), ppd_.text(PPD_ORDER_ANY));
}

}  // namespace

#include "host/ppd/ppd_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "support/problem_text.h"

namespace driver_feature::ppd {

namespace {

class PpdFileTest : public testing::Test {
 protected:
  ~PpdFileTest() override { std::remove(file_.c_str()); }

  PpdPointer read(const std::string& lines) const {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n" << lines;
    host::Result<PpdPointer> ppd = readPpd(file_);
    EXPECT_EQ(problemText(ppd), "");
    return ppd ? std::move(*ppd) : nullptr;
  }

  std::string file_ =
      std::filesystem::temp_directory_path() / ("driver-feature-ppd-" + std::to_string(::getpid()));
};

// A negative number of 39 digits needs more than the room that libcups has.
TEST_F(PpdFileTest, EmittedText_CustomPageSize_HasNoneOfItsNumbers) {
  const PpdPointer ppd = read(
      "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize A4: \"\"\n"
      "*CloseUI: *PageSize\n*CustomPageSize True: \"c\"\n"
      "*ParamCustomPageSize Width: 1 points 1 900\n*ParamCustomPageSize Height: 2 points 1 900\n");
  ASSERT_TRUE(ppd);
  ppdMarkOption(ppd.get(), "PageSize", "Custom.200x300");
  EXPECT_EQ(emittedText(*ppd, PPD_ORDER_ANY),
            "[{\n%%BeginFeature: *CustomPageSize True\n0\n0\n0\n0\n1\nc\n%%EndFeature\n"
            "} stopped cleartomark\n");
  const ppd_size_t* size = ppdPageSize(ppd.get(), nullptr);
  ASSERT_NE(size, nullptr);
  EXPECT_EQ(size->width, 200);
  EXPECT_EQ(size->length, 300);
}

TEST_F(PpdFileTest, EmittedText_CustomNumbers_AreLeftOutAndTextsAreNot) {
  const PpdPointer ppd = read(
      "*OpenUI *Mark: PickOne\n*DefaultMark: A\n*Mark A: \"\"\n*CloseUI: *Mark\n"
      "*CustomMark True: \"c\"\n*ParamCustomMark A: 1 int 0 9\n*ParamCustomMark B: 2 real 0 9\n"
      "*ParamCustomMark C: 3 points 0 9\n*ParamCustomMark D: 4 curve 0 9\n"
      "*ParamCustomMark E: 5 invcurve 0 9\n*ParamCustomMark F: 6 string 0 9\n");
  ASSERT_TRUE(ppd);
  ppdMarkOption(ppd.get(), "Mark", "{A=1 B=2.5 C=3 D=4 E=5 F=text}");
  EXPECT_EQ(emittedText(*ppd, PPD_ORDER_ANY),
            "[{\n%%BeginFeature: *CustomMark True\n0\n0\n0\n0\n0\n(text)\nc\n%%EndFeature\n"
            "} stopped cleartomark\n");
  ppd_coption_t* mark = ppdFindCustomOption(ppd.get(), "Mark");
  EXPECT_EQ(ppdFindCustomParam(mark, "A")->current.custom_int, 1);
  EXPECT_EQ(ppdFindCustomParam(mark, "B")->current.custom_real, 2.5F);
  EXPECT_EQ(ppdFindCustomParam(mark, "C")->current.custom_points, 3);
  EXPECT_EQ(ppdFindCustomParam(mark, "D")->current.custom_curve, 4);
  EXPECT_EQ(ppdFindCustomParam(mark, "E")->current.custom_invcurve, 5);
}

TEST_F(PpdFileTest, PpdBytes_OfAPlainFile_AreItsOwn) {
  std::ofstream(file_) << "a\r\nb";
  EXPECT_EQ(ppdBytes(file_), "a\r\nb");
  EXPECT_EQ(ppdBytes(file_ + ".absent"), "");
}

}  // namespace

}  // namespace driver_feature::ppd

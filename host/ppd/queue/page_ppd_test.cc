#include "host/ppd/queue/page_ppd.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "host/ppd/ppd_file.h"
#include "support/problem_text.h"

namespace driver_feature::ppd {
namespace {

using testing::HasSubstr;
using testing::Not;

class PagePpdTest : public testing::Test {
 protected:
  ~PagePpdTest() override { std::filesystem::remove(file_); }

  // libcups' view of a PPD with these lines.
  PpdPointer read(const std::string& lines) {
    std::ofstream(file_) << "*PPD-Adobe: \"4.3\"\n" << lines;
    host::Result<PpdPointer> ppd = readPpd(file_);
    EXPECT_EQ(problemText(ppd), "");
    return ppd ? std::move(*ppd) : nullptr;
  }

  // The page PPD of a printer's PPD with its marks, as libcups reads it.
  PpdPointer readBack(ppd_file_t* ppd) {
    PpdPointer page = read(pagePpd(ppd).substr(std::string("*PPD-Adobe: \"4.3\"\n").size()));
    ppdMarkDefaults(page.get());
    return page;
  }

  std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                ("driver-feature-page-ppd-" + std::to_string(::getpid()));
};

const std::string kPageSizes =
    "*OpenUI *PageSize: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n*DefaultPageSize: A5\n"
    "*PageSize A4: \"a4\"\n*PageSize A5: \"a5\"\n*CloseUI: *PageSize\n"
    "*ImageableArea A5: \"10 20 400.5 575\"\n*PaperDimension A4: \"595 842\"\n"
    "*PaperDimension A5: \"420 595\"\n";
const std::string kDuplex =
    "*OpenUI *Duplex: PickOne\n*OrderDependency: 20 AnySetup *Duplex\n*DefaultDuplex: None\n"
    "*Duplex None: \"one\"\n*Duplex DuplexTumble: \"two\"\n*CloseUI: *Duplex\n";

TEST_F(PagePpdTest, Sheet_IsTheMarkedOneWithItsMargins) {
  const PpdPointer ppd = read(kPageSizes + "*LandscapeOrientation: Plus90\n");
  EXPECT_THAT(pagePpd(ppd.get()), HasSubstr("*LandscapeOrientation: Plus90\n"));
  EXPECT_THAT(pagePpd(ppd.get()), HasSubstr("*ImageableArea Sheet: \"10 20 400.5 575\"\n"
                                            "*PaperDimension Sheet: \"420 595\"\n"));
  // Without margins it is the whole sheet.
  ppdMarkOption(ppd.get(), "PageSize", "A4");
  EXPECT_THAT(pagePpd(ppd.get()), HasSubstr("*ImageableArea Sheet: \"0 0 595 842\"\n"));
}

void expectFilterWithoutCommands(ppd_file_t& ppd) {
  EXPECT_EQ(ppd.num_filters, 1);
  for (const ppd_section_t section :
       {PPD_ORDER_ANY, PPD_ORDER_DOCUMENT, PPD_ORDER_EXIT, PPD_ORDER_PAGE, PPD_ORDER_PROLOG}) {
    EXPECT_EQ(ppd::emittedText(ppd, section), "");
  }
}

TEST_F(PagePpdTest, Text_PpdWithoutOptions_NamesAFilterOnly) {
  const PpdPointer page = readBack(read("").get());
  expectFilterWithoutCommands(*page);
  EXPECT_EQ(ppdPageSize(page.get(), nullptr), nullptr);
  EXPECT_FALSE(printsBothSides(*page));
  EXPECT_THAT(pagePpd(nullptr), HasSubstr("*cupsFilter: "));
}

TEST_F(PagePpdTest, Text_SizeAndSidesAreMarked_HasThemWithoutCommands) {
  const PpdPointer ppd = read(kPageSizes + kDuplex);
  ppdMarkOption(ppd.get(), "Duplex", "DuplexTumble");
  const PpdPointer page = readBack(ppd.get());
  expectFilterWithoutCommands(*page);
  const ppd_size_t* size = ppdPageSize(page.get(), nullptr);
  ASSERT_NE(size, nullptr);
  EXPECT_EQ(size->length, 595);
  EXPECT_TRUE(printsBothSides(*page));
}

TEST_F(PagePpdTest, BothSides_AreThoseOfTheMarkedChoice) {
  const PpdPointer ppd = read(kDuplex + "*cupsEvenDuplex: True\n");
  EXPECT_FALSE(printsBothSides(*ppd));
  EXPECT_FALSE(fillsLastSheet(*ppd));
  EXPECT_THAT(pagePpd(ppd.get()), Not(HasSubstr("Duplex")));
  ppdMarkOption(ppd.get(), "Duplex", "DuplexTumble");
  EXPECT_TRUE(printsBothSides(*ppd));
  EXPECT_TRUE(fillsLastSheet(*ppd));
  EXPECT_THAT(pagePpd(ppd.get()), HasSubstr("*cupsEvenDuplex: True\n"));
}

TEST_F(PagePpdTest, Order_IsTheTraysOrThePrinters) {
  EXPECT_FALSE(stacksReversed(*read("")));
  EXPECT_TRUE(stacksReversed(*read("*DefaultOutputOrder: Reverse\n")));
  const std::string trays =
      "*DefaultOutputOrder: Reverse\n*PageStackOrder Down: Normal\n*OpenUI *OutputBin: PickOne\n"
      "*DefaultOutputBin: Down\n*OutputBin Down: \"d\"\n*OutputBin Up: \"u\"\n"
      "*CloseUI: *OutputBin\n";
  const PpdPointer ppd = read(trays);
  EXPECT_FALSE(stacksReversed(*ppd));
  ppdMarkOption(ppd.get(), "OutputBin", "Up");
  EXPECT_TRUE(stacksReversed(*ppd));
  // A printer with an option for it sees to it itself.
  EXPECT_FALSE(
      stacksReversed(*read("*OpenUI *OutputOrder: PickOne\n*DefaultOutputOrder: Reverse\n"
                           "*OutputOrder Normal: \"\"\n*OutputOrder Reverse: \"\"\n"
                           "*CloseUI: *OutputOrder\n")));
}

TEST_F(PagePpdTest, MostCopies_AreThoseOfThePrinter) {
  EXPECT_EQ(mostCopies(*read("")), 9999);
  EXPECT_EQ(mostCopies(*read("*cupsMaxCopies: 20\n")), 20);
  EXPECT_EQ(mostCopies(*read("*cupsManualCopies: True\n")), 1);
}

}  // namespace
}  // namespace driver_feature::ppd

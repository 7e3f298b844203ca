#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

Translation printerWithSizes(const FeatureCapability& sizes) {
  return Translation(capabilitiesWith({listOf("InputSlot", {"Tray1", "Upper"}), sizes}));
}

JobRequest mediaColRequest(const IppPointer& media) {
  JobRequest request;
  request.collection("media-col", media);
  return request;
}

TEST(MediaTest, Media_StandardSizes_HaveTheirNames) {
  const Translation printer = printerWithSizes(pageSizes());
  EXPECT_EQ(advertised(printer, "media-supported"),
            "iso_a4_210x297mm,iso_a5_148x210mm,na_letter_8.5x11in");
  EXPECT_EQ(advertised(printer, "media-default"), "iso_a4_210x297mm");
  EXPECT_EQ(advertised(printer, "media-col-default"),
            "{media-size={x-dimension=21000 y-dimension=29700} media-bottom-margin=423 "
            "media-left-margin=423 media-right-margin=423 media-top-margin=423 "
            "media-source=tray-1 media-type=auto}");
}

TEST(MediaTest, Media_SeveralChoicesOfOneSize_AllHaveNames) {
  FeatureCapability sizes = listOf("PageSize", {"A4Small", "A4", "A4.Fullbleed", "Label 4"});
  setSize(sizes, 0, 21000, 29700);
  setSize(sizes, 1, 21000, 29700);
  setSize(sizes, 2, 21000, 29700, 0);
  setSize(sizes, 3, 10160, 15005);
  const Translation printer = printerWithSizes(sizes);
  EXPECT_EQ(advertised(printer, "media-supported"),
            "om_a4-small_210x297mm,iso_a4_210x297mm,om_a4-fullbleed_210x297mm,"
            "om_label-4_101.6x150.05mm");
  EXPECT_EQ(advertised(printer, "media-size-supported"),
            "{x-dimension=21000 y-dimension=29700},{x-dimension=10160 y-dimension=15005}");
  EXPECT_EQ(advertised(printer, "media-left-margin-supported"), "0,423");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "om_a4-fullbleed_210x297mm")),
            "PageSize=A4.Fullbleed");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "iso_a4_210x297mm")), "PageSize=A4");
}

TEST(MediaTest, MediaCol_Margins_ChooseAmongSizes) {
  FeatureCapability sizes = listOf("PageSize", {"A4", "A4.Fullbleed"});
  setSize(sizes, 0, 21000, 29700);
  setSize(sizes, 1, 21000, 29700, 0);
  const Translation printer = printerWithSizes(sizes);
  IppPointer media = mediaSize(21000, 29700);
  EXPECT_EQ(settingsFor(printer, mediaColRequest(media)), "PageSize=A4");
  ippAddInteger(media.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "media-left-margin", 0);
  EXPECT_EQ(settingsFor(printer, mediaColRequest(media)), "PageSize=A4.Fullbleed");
}

TEST(MediaTest, MediaCol_Members_AreFeatures) {
  IppPointer media = mediaSize(14800, 21000);
  ippAddString(media.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-source", nullptr, "top");
  ippAddString(media.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, "media-type", nullptr, "auto");
  EXPECT_EQ(settingsFor(printerWithSizes(pageSizes()), mediaColRequest(media)),
            "PageSize=A5 InputSlot=Upper");
}

TEST(MediaTest, MediaCol_SizesWithinHalfAMillimetre_AreTheSame) {
  const Translation printer = printerWithSizes(pageSizes());
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(21050, 29650))), "PageSize=A4");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(21051, 29700))), " !media-col");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(21000, 29649))), " !media-col");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(29700, 21000))), " !media-col");
}

TEST(MediaTest, MediaCol_ThatIsNoCollection_IsUnsupported) {
  const Translation printer = printerWithSizes(pageSizes());
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media-col", "a4")), " !media-col");
  const IppPointer media(ippNew());
  ippAddInteger(media.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "media-size", 5);
  EXPECT_EQ(settingsFor(printer, mediaColRequest(media)), " !media-col");
}

TEST(MediaTest, Media_OtherNamesOfASize_AreUnderstood) {
  const Translation printer = printerWithSizes(pageSizes());
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "iso-a5")), "PageSize=A5");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "custom_mine_148x210mm")),
            "PageSize=A5");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "iso_a3_297x420mm")), " !media");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "gold leaf")), " !media");
}

// A custom size in millimetres, as a native description has it.
Translation printerWithCustomSize(const std::string& width, const std::string& height) {
  FeatureCapability sizes = pageSizes();
  sizes.choices.emplace_back().name = "Free";
  FeatureCapability across = decimalNumber("CustomPageWidth", 76.2F, 304.8F, width);
  FeatureCapability down = decimalNumber("CustomPageHeight", 127, 1200, height);
  across.enabler = {"PageSize", "Free"};
  return Translation(capabilitiesWith({down, across, sizes}));
}

TEST(MediaTest, CustomSize_BetweenLimits_IsNumbers) {
  const Translation printer = printerWithCustomSize("210", "297");
  EXPECT_EQ(advertised(printer, "media-supported"),
            "iso_a4_210x297mm,iso_a5_148x210mm,na_letter_8.5x11in,custom_min_76.2x127mm,"
            "custom_max_304.8x1200mm");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(10000, 12745))),
            "PageSize=Free CustomPageWidth=100 CustomPageHeight=127.45");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("media", "custom_max_304.8x1200mm")),
            "PageSize=Free CustomPageWidth=304.8 CustomPageHeight=1200");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(7619, 20000))), " !media-col");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(10000, 120001))), " !media-col");
  EXPECT_EQ(settingsFor(printer, mediaColRequest(mediaSize(21000, 29700))), "PageSize=A4");
}

TEST(MediaTest, CustomSize_InUnknownUnits_IsNotAdvertisedAsASize) {
  const Translation printer = printerWithCustomSize("99", "150");
  EXPECT_EQ(advertised(printer, "media-supported"),
            "iso_a4_210x297mm,iso_a5_148x210mm,na_letter_8.5x11in");
  EXPECT_EQ(advertised(printer, "x-custom-page-width-supported"), "76.2,304.8");
  EXPECT_EQ(settingsFor(printer, JobRequest().name("x-custom-page-width", "100")),
            "PageSize=Free CustomPageWidth=100");
}

// The features of an imported PPD, which has the sizes twice.
TEST(MediaTest, ImportedSizes_ChooseOneOfTwoLists) {
  FeatureCapability region = listOf("PageRegion", {"A4", "A5", "not set"});
  FeatureCapability sizes = listOf("PageSize", {"A4", "A5", "Custom", "not set"});
  setSize(sizes, 0, 21000, 29700);
  setSize(sizes, 1, 14800, 21000);
  const std::vector<FeatureCapability> numbers = {decimalNumber("PageSize.Height", 72, 1200, "842"),
                                                  decimalNumber("PageSize.Width", 72, 800, "595")};
  const JobRequest custom = mediaColRequest(mediaSize(10000, 20000));
  const JobRequest smaller = std::move(JobRequest().keyword("media", "iso_a5_148x210mm"));
  sizes.value = "not set";
  const Translation byRegion(capabilitiesWith({region, sizes, numbers[0], numbers[1]}));
  EXPECT_EQ(advertised(byRegion, "media-default"), "iso_a4_210x297mm");
  EXPECT_EQ(settingsFor(byRegion, smaller), "PageRegion=A5 PageSize=not set");
  EXPECT_EQ(settingsFor(byRegion, custom),
            "PageSize=Custom PageRegion=not set PageSize.Width=283.465 PageSize.Height=566.929");
  sizes.value = "A4";
  region.value = "not set";
  const Translation bySize(capabilitiesWith({region, sizes, numbers[0], numbers[1]}));
  EXPECT_EQ(settingsFor(bySize, smaller), "PageSize=A5 PageRegion=not set");
}

TEST(MediaTest, NoSizes_AreStandardOnesThatChangeNothing) {
  const Translation printer(capabilitiesWith({}));
  EXPECT_EQ(advertised(printer, "media-default"), "iso_a4_210x297mm");
  const JobRequest request = std::move(JobRequest().keyword("media", "na_letter_8.5x11in"));
  const JobSettings job = printer.settingsOf(request.get());
  EXPECT_EQ(textOf(job.settings), "");
  EXPECT_EQ(job.status(), IPP_STATUS_OK);
  EXPECT_EQ(job.sheet.width, 21590);
  EXPECT_EQ(job.sheet.height, 27940);
}

}  // namespace
}  // namespace driver_feature::ipp

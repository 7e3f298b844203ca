#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

// All attributes with their kinds, a line each.
std::string everything(const Translation& printer) {
  const IppPointer message(ippNew());
  printer.addPrinterAttributes(message.get());
  std::string lines;
  for (ipp_attribute_t* each = ippFirstAttribute(message.get()); each != nullptr;
       each = ippNextAttribute(message.get())) {
    EXPECT_EQ(ippGetGroupTag(each), IPP_TAG_PRINTER) << ippGetName(each);
    lines += std::string(ippGetName(each)) + " " + ippTagString(ippGetValueTag(each)) + " " +
             textOf(each) + "\n";
  }
  return lines;
}

FeatureCapability onlyA4() {
  FeatureCapability sizes = listOf("PageSize", {"A4"});
  setSize(sizes, 0, 21000, 29700);
  return sizes;
}

TEST(PrinterAttributesTest, Printer_WithOneFeatureOfEachKind_AdvertisesAll) {
  FeatureCapability pin = textOf("Pin", 4, "0123456789");
  pin.isEncrypted = true;
  FeatureCapability secret = textOf("Secret", 300);
  secret.isEncrypted = true;
  secret.value = "hidden";
  FeatureCapability owner = textOf("Owner", 0);
  owner.value = "Jane";
  const Translation printer(
      capabilitiesWith({decimalNumber("Gamma", -0.5F, 3, "1.25"), owner, onlyA4(), pin, secret,
                        wholeNumber("Wait", 5, 300, "60")}));
  EXPECT_EQ(
      everything(printer),
      "copies-supported rangeOfInteger 1-999\n"
      "copies-default integer 1\n"
      "media-supported keyword iso_a4_210x297mm\n"
      "media-default keyword iso_a4_210x297mm\n"
      "media-ready keyword iso_a4_210x297mm\n"
      "media-size-supported collection {x-dimension=21000 y-dimension=29700}\n"
      "media-bottom-margin-supported integer 423\n"
      "media-left-margin-supported integer 423\n"
      "media-right-margin-supported integer 423\n"
      "media-top-margin-supported integer 423\n"
      "media-col-database collection {media-size={x-dimension=21000 y-dimension=29700} "
      "media-bottom-margin=423 media-left-margin=423 media-right-margin=423 "
      "media-top-margin=423}\n"
      "media-col-default collection {media-size={x-dimension=21000 y-dimension=29700} "
      "media-bottom-margin=423 media-left-margin=423 media-right-margin=423 "
      "media-top-margin=423 media-source=auto media-type=auto}\n"
      "media-col-ready collection {media-size={x-dimension=21000 y-dimension=29700} "
      "media-bottom-margin=423 media-left-margin=423 media-right-margin=423 "
      "media-top-margin=423 media-source=auto media-type=auto}\n"
      "media-col-supported keyword media-bottom-margin,media-left-margin,media-right-margin,"
      "media-size,media-size-name,media-top-margin,media-source,media-type\n"
      "media-source-supported keyword auto\n"
      "media-source-default keyword auto\n"
      "media-type-supported keyword auto\n"
      "media-type-default keyword auto\n"
      "sides-supported keyword one-sided\n"
      "sides-default keyword one-sided\n"
      "print-color-mode-supported keyword auto\n"
      "print-color-mode-default keyword auto\n"
      "print-quality-supported enum normal\n"
      "print-quality-default enum normal\n"
      "printer-resolution-supported resolution 600dpi\n"
      "printer-resolution-default resolution 600dpi\n"
      "output-bin-supported keyword auto\n"
      "output-bin-default keyword auto\n"
      "x-gamma-supported nameWithoutLanguage -0.5,3\n"
      "x-gamma-default nameWithoutLanguage 1.25\n"
      "x-owner-supported rangeOfInteger 0-255\n"
      "x-owner-default nameWithoutLanguage Jane\n"
      "x-secret-supported rangeOfInteger 0-255\n"
      "x-secret-default no-value no-value\n"
      "x-wait-supported rangeOfInteger 5-300\n"
      "x-wait-default integer 60\n"
      "job-hold-until-supported keyword no-hold,indefinite\n"
      "job-hold-until-default keyword no-hold\n"
      "finishings-supported enum none\n"
      "finishings-ready enum none\n"
      "finishings-default enum none\n"
      "finishing-template-supported keyword none\n"
      "finishings-col-supported keyword finishing-template\n"
      "finishings-col-database collection {finishing-template=none}\n"
      "finishings-col-ready collection {finishing-template=none}\n"
      "finishings-col-default collection {finishing-template=none}\n"
      "number-up-supported integer 1,2,4,6,9,16\n"
      "number-up-default integer 1\n"
      "orientation-requested-supported enum portrait,landscape,reverse-landscape,"
      "reverse-portrait\n"
      "orientation-requested-default enum portrait\n"
      "multiple-document-handling-supported keyword separate-documents-uncollated-copies,"
      "separate-documents-collated-copies\n"
      "multiple-document-handling-default keyword separate-documents-uncollated-copies\n"
      "print-rendering-intent-supported keyword auto\n"
      "print-rendering-intent-default keyword auto\n"
      "print-content-optimize-supported keyword auto\n"
      "print-content-optimize-default keyword auto\n"
      "page-ranges-supported boolean true\n"
      "job-password-supported integer 4\n"
      "job-password-length-supported rangeOfInteger 1-4\n"
      "job-password-encryption-supported keyword none\n"
      "overrides-supported keyword document-number,document-numbers,pages\n"
      "preferred-attributes-supported boolean true\n"
      "job-creation-attributes-supported keyword copies,finishings,finishings-col,"
      "ipp-attribute-fidelity,job-hold-until,job-password,job-password-encryption,media,"
      "media-col,multiple-document-handling,number-up,orientation-requested,output-bin,overrides,"
      "page-ranges,print-color-mode,print-content-optimize,print-quality,print-rendering-intent,"
      "printer-resolution,sides,x-gamma,x-owner,x-secret,x-wait\n");
}

TEST(PrinterAttributesTest, Presets_AreTemplatesAndPresetsWithTheirAttributes) {
  Capabilities all = capabilitiesWith(
      {wholeNumber("Copies", 1, 9, "1"), listOf("InputSlot", {"Tray1", "Tray2"}), pageSizes(),
       listOf("Staple", {"None", "UpperLeft"}), listOf("TonerSave", {"Off", "On"})});
  all.presets = {{"Draft", {{"TonerSave", "On"}, {"Copies", "3"}}},
                 {"DRAFT", {{"PageSize", "A5"}, {"InputSlot", "Tray2"}, {"Staple", "None"}}},
                 {"Staple Top-Left", {{"Staple", "UpperLeft"}}}};
  const Translation printer(std::move(all));
  EXPECT_EQ(advertised(printer, "finishing-template-supported"),
            "none,staple-top-left,draft,draft-2,staple-top-left-2");
  EXPECT_EQ(advertised(printer, "job-presets-supported"),
            "{preset-name=draft x-toner-save=on copies=3},"
            "{preset-name=draft-2 media-col={media-size={x-dimension=14800 y-dimension=21000} "
            "media-bottom-margin=423 media-left-margin=423 media-right-margin=423 "
            "media-top-margin=423 media-source=tray-2} finishings=none},"
            "{preset-name=staple-top-left-2 finishings=staple-top-left}");
}

TEST(PrinterAttributesTest, Presets_SecretsAreLeftOut) {
  FeatureCapability secret = textOf("Secret", 20);
  secret.isEncrypted = true;
  Capabilities all = capabilitiesWith({secret});
  all.presets = {{"locked", {{"Secret", "hidden"}}}};
  EXPECT_EQ(advertised(Translation(std::move(all)), "job-presets-supported"),
            "{preset-name=locked}");
}

TEST(PrinterAttributesTest, Settings_OfAValidatedJob_AreAttributes) {
  const Translation printer(
      capabilitiesWith({listOf("Duplex", {"None", "DuplexTumble"}), pageSizes()}));
  const IppPointer response(ippNew());
  printer.addSettings(response.get(), IPP_TAG_JOB,
                      {{"Duplex", "DuplexTumble"}, {"PageSize", "Letter"}, {"Unknown", "x"}});
  EXPECT_EQ(textOf(ippFindAttribute(response.get(), "sides", IPP_TAG_ZERO)),
            "two-sided-short-edge");
  EXPECT_EQ(textOf(ippFindAttribute(response.get(), "media-col", IPP_TAG_ZERO)),
            "{media-size={x-dimension=21590 y-dimension=27940} media-bottom-margin=423 "
            "media-left-margin=423 media-right-margin=423 media-top-margin=423}");
}

}  // namespace
}  // namespace driver_feature::ipp

#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

FeatureCapability withTicket(FeatureCapability feature, const std::string& name,
                             const std::string& syntax, const std::vector<std::string>& words) {
  feature.ticketName = name;
  feature.syntax = syntax;
  for (std::size_t i = 0; i < words.size(); ++i) feature.choices[i].ticketName = words[i];
  return feature;
}

std::string carriers(const Translation& printer, const std::string& feature) {
  std::string names;
  for (const std::string& name : printer.attributesOf(feature)) {
    names += (names.empty() ? "" : " ") + name;
  }
  return names;
}

struct NameRow {
  const char* feature;
  std::vector<std::string> choices;
  const char* attribute;
  const char* values;  // Supported ones.
};

void PrintTo(const NameRow& row, std::ostream* stream) {
  *stream << row.feature;
}

class PpdNamesTest : public testing::TestWithParam<NameRow> {};

TEST_P(PpdNamesTest, FeatureWithANameOfPpds_IsTheStandardAttribute) {
  const NameRow& row = GetParam();
  const Translation printer(capabilitiesWith({listOf(row.feature, row.choices)}));
  EXPECT_EQ(advertised(printer, std::string(row.attribute) + "-supported"), row.values);
}

INSTANTIATE_TEST_SUITE_P(
    AttributeTableTest, PpdNamesTest,
    testing::Values(
        NameRow{"Duplex",
                {"None", "DuplexTumble", "DuplexNoTumble"},
                "sides",
                "one-sided,two-sided-short-edge,two-sided-long-edge"},
        NameRow{"JCLDuplex", {"False", "True"}, "sides", "one-sided,two-sided-long-edge"},
        NameRow{"InputSlot",
                {"AutoSelect", "Tray 1", "Tray2", "MultiPurpose", "Manual Feed", "LCC"},
                "media-source",
                "auto,tray-1,tray-2,by-pass-tray,manual,large-capacity"},
        NameRow{"InputSlot", {"Upper", "Lower", "OnlyOne"}, "media-source", "top,bottom,only-one"},
        NameRow{"MediaType",
                {"Plain", "Thick", "Transparency", "My Own"},
                "media-type",
                "stationery,stationery-heavyweight,transparency,my-own"},
        NameRow{"OutputBin", {"Upper", "FaceUp", "Mailbox3"}, "output-bin", "top,face-up,mailbox3"},
        NameRow{"ColorModel", {"CMYK", "Gray"}, "print-color-mode", "color,monochrome"},
        NameRow{
            "cupsPrintQuality", {"Draft", "Normal", "High"}, "print-quality", "draft,normal,high"},
        NameRow{
            "Resolution", {"300dpi", "600x1200dpi"}, "printer-resolution", "300dpi,600x1200dpi"},
        NameRow{"Collate",
                {"True", "False"},
                "multiple-document-handling",
                "separate-documents-collated-copies,separate-documents-uncollated-copies"},
        NameRow{"KCStaple",
                {"None", "Front", "Both"},
                "finishings",
                "none,staple-top-left,staple-dual-left"},
        NameRow{"HPPunch",
                {"Off", "2Holes", "4holes"},
                "finishings",
                "none,punch-dual-left,punch-quad-left"},
        NameRow{"Fold", {"None", "ZFold", "Half"}, "finishings", "none,fold-half,fold-z"}));

TEST(AttributeTableTest, TicketNames_AreStandardAttributes) {
  const Translation printer(capabilitiesWith(
      {withTicket(listOf("Both", {"No", "Yes"}), "sides", "keyword",
                  {"one-sided", "two-sided-long-edge"}),
       withTicket(listOf("Turn", {"Up", "Side"}), "orientation-requested", "enum", {"3", "4"}),
       withTicket(listOf("Heft", {"L", "H"}), "staple", "keyword", {"none", "staple-top-left"})}));
  EXPECT_EQ(advertised(printer, "sides-supported"), "one-sided,two-sided-long-edge");
  EXPECT_EQ(advertised(printer, "orientation-requested-supported"), "portrait,landscape");
  EXPECT_EQ(advertised(printer, "finishings-supported"), "none,staple-top-left");
  EXPECT_EQ(settingsFor(printer, JobRequest().enums("orientation-requested", {4})), "Turn=Side");
  EXPECT_EQ(carriers(printer, "Heft"), "finishings");
}

TEST(AttributeTableTest, TicketName_WinsOverAFeatureWithAKnownName) {
  const Translation printer(
      capabilitiesWith({listOf("Duplex", {"None", "DuplexTumble"}),
                        withTicket(listOf("Other", {"a", "b"}), "sides", "keyword",
                                   {"one-sided", "two-sided-long-edge"})}));
  EXPECT_EQ(carriers(printer, "Other"), "sides");
  EXPECT_EQ(carriers(printer, "Duplex"), "x-duplex");
}

// Nothing is lost: the words of the standard attribute are those of some choices.
TEST(AttributeTableTest, ChoicesWithoutAStandardWord_HaveAnAttributeOfTheirOwn) {
  const Translation printer(capabilitiesWith({listOf("Duplex", {"None", "DuplexTumble", "Booklet"}),
                                              listOf("ColorModel", {"RGB", "CMYK", "Gray"})}));
  EXPECT_EQ(carriers(printer, "Duplex"), "sides x-duplex");
  EXPECT_EQ(advertised(printer, "sides-supported"), "one-sided,two-sided-short-edge");
  EXPECT_EQ(advertised(printer, "x-duplex-supported"), "none,duplex-tumble,booklet");
  EXPECT_EQ(carriers(printer, "ColorModel"), "print-color-mode x-color-model");
  EXPECT_EQ(advertised(printer, "print-color-mode-supported"), "color,monochrome");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("print-color-mode", "color")),
            "ColorModel=RGB");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("x-color-model", "cmyk")), "ColorModel=CMYK");
}

TEST(AttributeTableTest, OfSeveralChoicesWithOneWord_TheCurrentOneHasIt) {
  FeatureCapability model = listOf("ColorModel", {"RGB", "CMYK", "Gray"});
  model.value = "CMYK";
  const Translation printer(capabilitiesWith({model}));
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("print-color-mode", "color")),
            "ColorModel=CMYK");
  EXPECT_EQ(advertised(printer, "print-color-mode-default"), "color");
}

TEST(AttributeTableTest, OwnAttributes_HaveDistinctNamesAndWords) {
  const Translation printer(
      capabilitiesWith({listOf("TonerSave", {"On", "on", "O N"}), listOf("Toner Save", {"1", "2"}),
                        listOf("toner-save", {"a", "b"})}));
  EXPECT_EQ(carriers(printer, "TonerSave") + " " + carriers(printer, "Toner Save") + " " +
                carriers(printer, "toner-save"),
            "x-toner-save x-toner-save-2 x-toner-save-3");
  EXPECT_EQ(advertised(printer, "x-toner-save-supported"), "on,on-2,o-n");
  EXPECT_EQ(advertised(printer, "x-toner-save-2-supported"), "n-1,n-2");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("x-toner-save", "on-2")), "TonerSave=on");
}

TEST(AttributeTableTest, OwnAttributes_TakeTicketNamesThatAreFree) {
  const Translation printer(capabilitiesWith(
      {withTicket(wholeNumber("Dark", 1, 5, "3"), "print-darkness", "integer", {}),
       withTicket(decimalNumber("Fast", 1, 6, "2"), "print-speed", "float", {}),
       withTicket(textOf("Title", 80), "job-name", "name", {}),
       withTicket(listOf("Cut", {"A", "B"}), "cut", "keyword", {"none", "page"}),
       withTicket(listOf("Trick", {"A", "B"}), "sides-default", "keyword", {"a", "b"}),
       withTicket(listOf("Save", {"A", "B"}), "x-save", "boolean", {"false", "true"})}));
  EXPECT_EQ(carriers(printer, "Dark"), "print-darkness");
  EXPECT_EQ(carriers(printer, "Fast"), "x-fast");
  EXPECT_EQ(carriers(printer, "Title"), "x-title");
  EXPECT_EQ(carriers(printer, "Cut"), "cut");
  EXPECT_EQ(carriers(printer, "Trick"), "x-trick");
  EXPECT_EQ(advertised(printer, "x-save-supported"), "true,false");
  EXPECT_EQ(settingsFor(printer, JobRequest().boolean("x-save", true)), "Save=B");
}

TEST(AttributeTableTest, ChoiceForNothing_IsOfferedOnlyWhileItIsChosen) {
  const Translation printer(
      capabilitiesWith({listOf("InputSlot", {"Tray1", "not set"}),
                        listOf("Feed", {"Yes", "not set"}), listOf("Wait", {"not set", "Long"})}));
  EXPECT_EQ(carriers(printer, "InputSlot"), "media-col");
  EXPECT_EQ(advertised(printer, "media-source-supported"), "tray-1");
  EXPECT_EQ(advertised(printer, "x-feed-supported"), "yes");
  EXPECT_EQ(advertised(printer, "x-wait-supported"), "not-set,long");
  EXPECT_EQ(advertised(printer, "x-wait-default"), "not-set");
}

TEST(AttributeTableTest, Hardware_IsOfThePrinterAndNotOfJobs) {
  FeatureCapability unit = listOf("DuplexUnit", {"Installed", "Missing"});
  unit.isHardware = true;
  const Translation printer(capabilitiesWith({unit}));
  EXPECT_EQ(carriers(printer, "DuplexUnit"), "x-duplex-unit-configured");
  EXPECT_EQ(advertised(printer, "x-duplex-unit-configured"), "installed");
  EXPECT_EQ(advertised(printer, "x-duplex-unit-supported"), "(none)");
  EXPECT_EQ(settingsFor(printer, JobRequest().keyword("x-duplex-unit-configured", "missing")),
            " !x-duplex-unit-configured");
}

TEST(AttributeTableTest, FinishingOfTwoFeatures_IsThatOfTheFirst) {
  const Translation printer(capabilitiesWith(
      {listOf("StapleLocation", {"None", "UpperLeft"}), listOf("Staple", {"None", "TopLeft"})}));
  EXPECT_EQ(carriers(printer, "StapleLocation"), "finishings");
  EXPECT_EQ(carriers(printer, "Staple"), "x-staple");
}

}  // namespace
}  // namespace driver_feature::ipp

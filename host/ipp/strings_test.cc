#include <gtest/gtest.h>

#include "support/ipp_support.h"

namespace driver_feature::ipp {
namespace {

Translation printerWithTexts() {
  Capabilities all = capabilitiesWith({listOf("Duplex", {"None", "DuplexTumble"}), pageSizes(),
                                       listOf("Staple", {"None", "UpperLeft"}),
                                       listOf("TonerSave", {"Off", "On"})});
  all.presets = {{"draft", {}}, {"photo", {}}};
  all.languages = {{"", {{"preset:photo", "Photograph"}, {"TonerSave.On", "Saving"}}},
                   {"fr",
                    {{"TonerSave",
                      "\xC3\x89"
                      "conomie"},
                     {"TonerSave.Off", "Non"}}},
                   {"de",
                    {{"TonerSave", "Toner \"sparen\""},
                     {"Duplex", "Beidseitig"},
                     {"Duplex.None", "Aus"},
                     {"PageSize.Letter", "US\\Brief"},
                     {"preset:draft", "Entwurf\nschnell"},
                     {"Staple.UpperLeft", "Oben links"}}}};
  return Translation(std::move(all));
}

TEST(StringsTest, Strings_OfALanguage_AreItsTextsAndThoseThatStandIn) {
  EXPECT_EQ(printerWithTexts().strings("de-CH"),
            "\"sides\" = \"Beidseitig\";\n"
            "\"sides.one-sided\" = \"Aus\";\n"
            "\"x-toner-save\" = \"Toner \\\"sparen\\\"\";\n"
            "\"x-toner-save.off\" = \"Non\";\n"
            "\"x-toner-save.on\" = \"Saving\";\n"
            "\"media.na_letter_8.5x11in\" = \"US\\\\Brief\";\n"
            "\"finishings.20\" = \"Oben links\";\n"
            "\"finishing-template.staple-top-left\" = \"Oben links\";\n"
            "\"preset-name.draft\" = \"Entwurf\\nschnell\";\n"
            "\"finishing-template.draft\" = \"Entwurf\\nschnell\";\n"
            "\"preset-name.photo\" = \"Photograph\";\n"
            "\"finishing-template.photo\" = \"Photograph\";\n");
}

// Registered attributes have texts in every client: those without one are left out.
TEST(StringsTest, Strings_WithoutTexts_AreTheNamesOfOwnAttributes) {
  Capabilities all = capabilitiesWith(
      {listOf("Duplex", {"None", "DuplexTumble"}), listOf("TonerSave", {"Off", "On"})});
  all.presets = {{"draft", {}}};
  const Translation printer(std::move(all));
  EXPECT_EQ(printer.strings("en"),
            "\"x-toner-save\" = \"TonerSave\";\n"
            "\"x-toner-save.off\" = \"Off\";\n"
            "\"x-toner-save.on\" = \"On\";\n"
            "\"preset-name.draft\" = \"draft\";\n"
            "\"finishing-template.draft\" = \"draft\";\n");
  EXPECT_EQ(printer.languages(), std::vector<std::string>{"en"});
}

TEST(StringsTest, Languages_AreThoseOfTheDescription) {
  EXPECT_EQ(printerWithTexts().languages(), (std::vector<std::string>{"fr", "de"}));
}

}  // namespace
}  // namespace driver_feature::ipp

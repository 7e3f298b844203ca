// The sections of a PPD file, their order and their bytes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/ppd_test.h"

namespace {

class SectionsTest : public PpdTest {
 protected:
  SectionsTest() { errors_ = import("sections"); }

  std::string errors_;
  MarkedPpd ppd_{sourceFile("sections")};
};

TEST_F(SectionsTest, Import_WhatIsNotCarriedOver_IsNamed) {
  EXPECT_EQ(errors_,
            "driver-feature: sections.ppd: not carried over: 4 other keywords; "
            "--verbose names each\n");
  EXPECT_EQ(run({"import", "sections.ppd", "--output", "sections.xml", "--verbose"}).errors,
            "driver-feature: sections.ppd: not carried over: keywords: *FormatVersion, "
            "*Manufacturer, *ModelName, *NickName\n");
}

TEST_F(SectionsTest, PostScript_Defaults_EverySectionInItsOrder) {
  EXPECT_EQ(postScript("sections"),
            "%DriverSection ExitServer\n"
            "\n"
            "%EndDriverSection\n"
            "%DriverSection Prolog\n"
            "[{\n%%BeginFeature: *Patch On\n/percent (100%d %s %%) def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "\n"
            "%EndDriverSection\n"
            "%DriverSection DocumentSetup\n"
            "[{\n%%BeginFeature: *Duplex Both\n<</Duplex true>>setpagedevice\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "\n"
            "%EndDriverSection\n"
            "%DriverSection AnySetup\n"
            "[{\n%%BeginFeature: *Gamma False\n/gamma false def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "[{\n%%BeginFeature: *Beta A\n/beta (\x1B\t\x01) def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "[{\n%%BeginFeature: *Zeta A\n/zeta (\xE4\xFF) def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "\n"
            "%EndDriverSection\n"
            "%DriverSection PageSetup\n"
            "[{\n%%BeginFeature: *Finish Staple\n/staple true def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "\n"
            "%EndDriverSection\n");
}

TEST_F(SectionsTest, PostScript_OtherChoices_AreWhatLibcupsWrites) {
  ppd_.mark("Password", "Set");
  ppd_.mark("Patch", "Off");
  ppd_.mark("Duplex", "Single");
  ppd_.mark("Beta", "B");
  ppd_.mark("Gamma", "True");
  ppd_.mark("Undecided", "A");
  const std::string text = postScript("sections", {{"Password", "Set"},
                                                   {"Patch", "Off"},
                                                   {"Duplex", "Single"},
                                                   {"Beta", "B"},
                                                   {"Gamma", "True"},
                                                   {"Undecided", "A"}});
  EXPECT_EQ(section(text, "ExitServer"), "serverdict begin 0 exitserver");
  EXPECT_EQ(section(text, "Prolog"),
            "[{\n%%BeginFeature: *Patch Off\n%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(section(text, "PageSetup"),
            "[{\n%%BeginFeature: *Undecided A\n/undecided (A) def\n"
            "%%EndFeature\n} stopped cleartomark\n"
            "[{\n%%BeginFeature: *Finish Staple\n/staple true def\n"
            "%%EndFeature\n} stopped cleartomark\n");
  EXPECT_EQ(section(text, "ExitServer"), ppd_.text(PPD_ORDER_EXIT));
  EXPECT_EQ(section(text, "Prolog"), ppd_.text(PPD_ORDER_PROLOG));
  EXPECT_EQ(section(text, "DocumentSetup"), ppd_.text(PPD_ORDER_DOCUMENT));
  EXPECT_EQ(section(text, "AnySetup"), ppd_.text(PPD_ORDER_ANY));
  EXPECT_EQ(section(text, "PageSetup"), ppd_.text(PPD_ORDER_PAGE));
}

TEST_F(SectionsTest, Pjl_Defaults_IsInTheJobsFrame) {
  EXPECT_EQ(pjl("sections"),
            "\x1B%-12345X@PJL JOB\n"
            "@PJL SET QUALITY=\"FINE 100%\"\n\x1B&l0S"
            "@PJL ENTER LANGUAGE = POSTSCRIPT \n");
}

TEST_F(SectionsTest, Pjl_OtherChoices_AreInTheOrderOfTheirDependencies) {
  ppd_.mark("JCLQuality", "Draft");
  ppd_.mark("JCLCopies", "Two");
  const std::string text = pjl("sections", {{"JCLQuality", "Draft"}, {"JCLCopies", "Two"}});
  EXPECT_EQ(text,
            "\x1B%-12345X@PJL JOB\n"
            "@PJL SET COPIES=2\n"
            "@PJL SET QUALITY=DRAFT\r\n"
            "@PJL ENTER LANGUAGE = POSTSCRIPT \n");
  EXPECT_EQ(text, ppd_.jobStart());
}

TEST_F(SectionsTest, PostScript_PickMany_HasAFeatureForEachChoice) {
  ppd_.mark("Finish", "Punch");
  const std::string punched =
      "[{\n%%BeginFeature: *Finish Punch\n/punch true def\n%%EndFeature\n} stopped cleartomark\n";
  EXPECT_EQ(section(postScript("sections", {{"Finish.Punch", "True"}, {"Finish.Staple", "False"}}),
                    "PageSetup"),
            punched);
  // libcups writes the choices as they were marked, the default first.
  const std::string both = section(postScript("sections", {{"Finish.Punch", "True"}}), "PageSetup");
  EXPECT_EQ(both,
            "[{\n%%BeginFeature: *Finish Staple\n/staple true def\n"
            "%%EndFeature\n} stopped cleartomark\n" +
                punched);
  EXPECT_EQ(both, ppd_.text(PPD_ORDER_PAGE));
}

TEST_F(SectionsTest, Show_JobEnd_IsAFeatureThatIsNotWritten) {
  const std::string xml = read("sections.xml");
  EXPECT_THAT(xml, testing::HasSubstr(
                       "    <Feature FeatureType=\"MultiSelect\" Name=\"JCLEnd\" "
                       "DefaultValue=\"True\">\n"
                       "      <Option Name=\"True\" PJLCommand=\"\xEF\x9C\x9B%-12345X@PJL EOJ "
                       "&#10;\xEF\x9C\x9B%-12345X\"/>\n"
                       "    </Feature>\n"
                       "  </FeatureDescription>\n"));
}

// Option by option: the two choices that are made together by default are never
// to be.
TEST_F(SectionsTest, Import_ConstraintsAndTexts_StandBesideTheFeatures) {
  EXPECT_THAT(read("sections.xml"),
              testing::EndsWith("  <FeatureRules>\n"
                                "    <Never Id=\"Duplex-Finish.Punch\">\n"
                                "      <When Feature=\"Duplex\" Is=\"Both\"/>\n"
                                "      <When Feature=\"Finish.Punch\" Is=\"True\"/>\n"
                                "    </Never>\n"
                                "    <Never Id=\"Duplex-Finish.Staple\">\n"
                                "      <When Feature=\"Duplex\" Is=\"Both\"/>\n"
                                "      <When Feature=\"Finish.Staple\" Is=\"True\"/>\n"
                                "    </Never>\n"
                                "  </FeatureRules>\n"
                                "  <FeatureTexts Language=\"en\">\n"
                                "    <Text For=\"JCLQuality\">Quality</Text>\n"
                                "    <Text For=\"JCLQuality.Fine\">Very fine</Text>\n"
                                "  </FeatureTexts>\n"
                                "</DriverConfiguration>\n"));
}

// The file forbids what it has as defaults; nothing else is wrong.
TEST_F(SectionsTest, Check_Description_WarnsOfForbiddenDefaults) {
  const RunResult result = run({"check", "sections.xml"});
  EXPECT_THAT(result.output, testing::HasSubstr("\nsections.xml:75:12: warning: rule "
                                                "\"Duplex-Finish.Staple\" forbids the default "
                                                "values of its features; "));
  EXPECT_THAT(result.output, testing::HasSubstr("\n1 file checked: 0 errors, "));
}

}  // namespace

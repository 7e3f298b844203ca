// Names in PPDs that the command "queue" makes of descriptions: those of
// choices that a PPD calls otherwise, and of features that are not options.

#include <gmock/gmock.h>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class MadePpdNamesTest : public QueueCommandTest {};

TEST_F(MadePpdNamesTest, Duplex_HasThePpdsNamesAndTakesBoth) {
  describe("duplex.xml",
           {feature("MultiSelect", "Duplex", "DefaultValue='LongEdge' PSCommand='%s '",
                    "<Option Name='OneSided' PSCommand='one'/><Option Name='LongEdge' "
                    "PSCommand='long'/><Option Name='Flip' CLOKey='two-sided-short-edge' "
                    "PSCommand='short'/>")});
  makeQueue("duplex.xml");
  EXPECT_THAT(read("queue.ppd"),
              HasSubstr("*DriverFeatureChoice: \"Duplex None OneSided\"\n"
                        "*DriverFeatureChoice: \"Duplex DuplexNoTumble LongEdge\"\n"
                        "*DriverFeatureChoice: \"Duplex DuplexTumble Flip\"\n"
                        "*OpenUI *Duplex: PickOne\n*OrderDependency: 10 AnySetup *Duplex\n"
                        "*DefaultDuplex: DuplexNoTumble\n*Duplex None: \"\"\n"
                        "*Duplex DuplexNoTumble: \"\"\n*Duplex DuplexTumble: \"\"\n"));
  struct Row {
    const char* options;
    const char* command;
  };
  for (const Row& row : std::vector<Row>{{"", "long"},
                                         {"Duplex=None", "one"},
                                         {"Duplex=onesided", "one"},
                                         {"duplex=DuplexTumble", "short"},
                                         {"Duplex=Flip", "short"},
                                         {"sides=one-sided", "one"},
                                         {"sides=two-sided-short-edge", "short"}}) {
    const RunResult result = withoutDebug(filter(row.options));
    EXPECT_THAT(result.output, HasSubstr("\n" + std::string(row.command) + " \n")) << row.options;
    EXPECT_EQ(result.errors, "PAGE: 1 1\nPAGE: 2 1\n") << row.options;
  }
  EXPECT_EQ(withoutDebug(filter("Duplex=Sideways")),
            failure(1,
                    "ERROR: option Duplex: there is no choice \"Sideways\"; choose one of None, "
                    "DuplexNoTumble, DuplexTumble\n"));
}

TEST_F(MadePpdNamesTest, MadePpd_KeepsTheNamesWhenItIsWrittenAgain) {
  EXPECT_EQ(queue({"printer.xml", "--output", "made.ppd"}), success(""));
  EXPECT_EQ(queue({"printer.xml", "--ppd", "made.ppd", "--output", "queue.ppd"}), success(""));
  EXPECT_EQ(read("queue.ppd"), read("made.ppd"));
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("Duplex=DuplexNoTumble").output, HasSubstr("/Duplex true /Tumble false"));
}

TEST_F(MadePpdNamesTest, DuplexWithoutOneSide_IsNotAnOption) {
  describe("duplex.xml", {feature("MultiSelect", "Duplex", "PSCommand='%s '",
                                  "<Option Name='Odd' PSCommand='odd'/>"
                                  "<Option Name='LongEdge' PSCommand='long'/>")});
  EXPECT_EQ(queue({"duplex.xml", "--output", "queue.ppd"}).errors,
            "driver-feature: not in the PPD: Duplex=Odd: a PPD has other names for the choices of "
            "this option\n"
            "driver-feature: not in the PPD: Duplex: a PPD has this name only for an option with a "
            "choice None\n");
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("Duplex=LongEdge").output, HasSubstr("\nlong \n"));
}

TEST_F(MadePpdNamesTest, Resolutions_EndInDpi) {
  describe("dots.xml", {feature("MultiSelect", "Resolution", "DefaultValue='600' PSCommand='%s '",
                                "<Option Name='600' PSCommand='six'/><Option Name='300x1200dpi' "
                                "PSCommand='mixed'/><Option Name='Fine' TESKCommand='1200dpi' "
                                "PSCommand='fine'/><Option Name='Best' PSCommand='best'/>")});
  EXPECT_EQ(
      queue({"dots.xml", "--output", "queue.ppd"}).errors,
      "driver-feature: not in the PPD: Resolution=Best: a PPD has other names for the choices "
      "of this option\n");
  EXPECT_THAT(read("queue.ppd"),
              HasSubstr("*DefaultResolution: 600dpi\n*Resolution 600dpi: \"\"\n"
                        "*Resolution 300x1200dpi: \"\"\n*Resolution 1200dpi: \"\"\n*CloseUI"));
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("").output, HasSubstr("\nsix \n"));
  EXPECT_THAT(filter("Resolution=300x1200dpi").output, HasSubstr("\nmixed \n"));
  EXPECT_THAT(filter("resolution=1200dpi").output, HasSubstr("\nfine \n"));
  EXPECT_THAT(filter("Resolution=Best").output, HasSubstr("\nbest \n"));
}

TEST_F(MadePpdNamesTest, NumberWithANameOfChoices_IsNotAnOption) {
  describe("dots.xml", {feature("IntEntry", "Resolution",
                                "IntMinValue='1' IntMaxValue='999' DefaultValue='600' "
                                "PSCommand='%d dots '")});
  EXPECT_EQ(queue({"dots.xml", "--output", "queue.ppd"}).errors,
            "driver-feature: not in the PPD: Resolution: a PPD has this name for an option with "
            "choices\n");
  set("PPD", "queue.ppd");
  EXPECT_THAT(filter("Resolution=300").output, HasSubstr("\n300 dots \n"));
}

TEST_F(MadePpdNamesTest, MembersOfRecords_AreNotOptions) {
  describe("records.xml",
           {"<FeatureDynamicGroup Name='Exceptions'><FeatureStaticGroup Name='Exception'>",
            feature("MultiSelect", "Media", "", "<Option Name='Plain'/>"),
            "<FeatureStaticGroup Name='Inner'>", feature("IntEntry", "Page", ""),
            "</FeatureStaticGroup></FeatureStaticGroup></FeatureDynamicGroup>",
            "<FeatureStaticGroup Name='Finishing'>",
            feature("MultiSelect", "Staple", "", "<Option Name='Off'/>"), "</FeatureStaticGroup>"});
  EXPECT_EQ(queue({"records.xml", "--output", "queue.ppd"}).errors,
            "driver-feature: not in the PPD: Media: the options of a job do not reach the records "
            "of Exceptions\n"
            "driver-feature: not in the PPD: Page: the options of a job do not reach the records "
            "of Exceptions\n");
  const std::string ppd = read("queue.ppd");
  EXPECT_THAT(ppd, HasSubstr("*OpenUI *Staple: "));
  EXPECT_THAT(ppd, Not(HasSubstr("*Media")));
  EXPECT_THAT(ppd, Not(HasSubstr("*Page:")));
}

}  // namespace

// The page sizes of PPDs that the command "queue" makes of descriptions.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <memory>

#include "printing/queue_fixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class MadePpdSizesTest : public QueueCommandTest {
 protected:
  // The description of a printer whose PageSize has these options.
  void describeSizes(const std::string& frame, const std::string& options) const {
    describe("sizes.xml",
             {feature("MultiSelect", "PageSize", "PSCommand='" + frame + "'", options)});
  }

  // What libcups reads of the size: its extent, then the margins at the left and
  // bottom and those at the right and top.
  std::string sizeOf(const std::string& name) const {
    const std::unique_ptr<ppd_file_t, void (*)(ppd_file_t*)> ppd(
        ppdOpenFile((folder() / "queue.ppd").c_str()), &ppdClose);
    const ppd_size_t* size = ppd ? ppdPageSize(ppd.get(), name.c_str()) : nullptr;
    if (size == nullptr) return "none";
    std::ostringstream text;
    text << size->width << "x" << size->length << " " << size->left << " " << size->bottom << " "
         << size->width - size->right << " " << size->length - size->top;
    return text.str();
  }
};

TEST_F(MadePpdSizesTest, BorderlessSizes_AreChoicesWithoutMargins) {
  describeSizes("%s",
                "<Option Name='A4' PSCommand='a4 '/>"
                "<Option Name='A4.Fullbleed' PSCommand='a4full '/>"
                "<Option Name='w283h420.Borderless' PSCommand='card '/>");
  makeQueue("sizes.xml");
  EXPECT_EQ(sizeOf("A4"), "595x842 18 18 18 18");
  EXPECT_EQ(sizeOf("A4.Fullbleed"), "595x842 0 0 0 0");
  EXPECT_EQ(sizeOf("w283h420.Borderless"), "283x420 0 0 0 0");
  EXPECT_THAT(filter("PageSize=A4.Fullbleed").output, HasSubstr("\na4full \n"));
  EXPECT_THAT(filter("media=w283h420.Borderless").output, HasSubstr("\ncard \n"));
}

TEST_F(MadePpdSizesTest, ExtentOfACommand_IsFound) {
  struct Row {
    const char* frame;
    const char* option;
    const char* size;
  };
  for (const Row& row : std::vector<Row>{
           {"&lt;&lt; /PageSize [%s] >> setpagedevice", "Name='X' PSCommand='300 400'", "300x400"},
           {"%s", "Name='X' PSCommand='/PageSize[300.5 400]'", "300.5x400"},
           {"%s", "Name='X' PSCommand='/PageSize get /PageSize &#10;[ 300&#9;400 ] put'",
            "300x400"},
           {"%s", "Name='A4' PSCommand='/PageSize [600 850]'", "600x850"},
           // Fed with the long edge first.
           {"%s", "Name='A4' PSCommand='/PageSize [842 595]'", "595x842"},
           {"%s", "Name='w300h400' PSCommand='/PageSize [400 300]'", "300x400"},
           {"%s", "Name='w300h400x' PSCommand='/PageSize [500 600]'", "300x400"},
           {"%s", "Name='X' TESKCommand='iso_a5_148x210mm' PSCommand='x'", "420x595"},
           {"%s", "Name='4x6in'", "288x432"},
           {"%s", "Name='A4.Transverse'", "595x842"}}) {
    describeSizes(row.frame, std::string("<Option ") + row.option + "/>");
    makeQueue("sizes.xml");
    const std::string option = row.option;
    const std::size_t end = option.find('\'', 6);
    EXPECT_EQ(sizeOf(option.substr(6, end - 6)), std::string(row.size) + " 18 18 18 18") << option;
  }
}

TEST_F(MadePpdSizesTest, CommandWithoutExtent_GivesNoSize) {
  for (const std::string command :
       {"/PageSize [300]", "/PageSize [0 400]", "/PageSize [w h]", "/PageSize", "300",
        "300 400 500", "/PageSize [300 400", "/PageSize [-300 400]", "/PageSize [300 14401]"}) {
    describeSizes("%s", "<Option Name='A5'/><Option Name='X' PSCommand='" + command + "'/>");
    EXPECT_EQ(queue({"sizes.xml", "--output", "queue.ppd"}).errors,
              "driver-feature: not in the PPD: PageSize=X: its size is not known; give it a name "
              "such as A4 or w612h792, or a PSCommand with /PageSize [WIDTH LENGTH]\n")
        << command;
    EXPECT_EQ(sizeOf("A5"), "420x595 18 18 18 18");
  }
}

TEST_F(MadePpdSizesTest, NameOfAnImpossibleSize_GivesNone) {
  describeSizes("%s",
                "<Option Name='A5'/><Option Name='226x310'/><Option Name='w9h14401'/>"
                "<Option Name='w0h0' PSCommand='300 400'/>");
  EXPECT_EQ(queue({"sizes.xml", "--output", "queue.ppd"}).status, 0);
  EXPECT_EQ(sizeOf("226x310"), "none");
  EXPECT_EQ(sizeOf("w9h14401"), "none");
  EXPECT_EQ(sizeOf("w0h0"), "none");
  EXPECT_EQ(sizeOf("A5"), "420x595 18 18 18 18");
}

TEST_F(MadePpdSizesTest, SmallSheets_HaveSmallMargins) {
  describeSizes("%s", "<Option Name='w71h100'/>");
  makeQueue("sizes.xml");
  EXPECT_EQ(sizeOf("w71h100"), "71x100 8 8 8 8");
}

TEST_F(MadePpdSizesTest, DescriptionWithoutSizes_HasStandardOnesThatChangeNothing) {
  describe("roll.xml", {feature("IntEntry", "Darkness", "DefaultValue='5' PSCommand='%d dark '")});
  makeQueue("roll.xml");
  EXPECT_EQ(sizeOf("A4"), "595x842 18 18 18 18");
  EXPECT_EQ(sizeOf("Letter"), "612x792 18 18 18 18");
  EXPECT_EQ(sizeOf("EnvDL"), "312x624 18 18 18 18");
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*DefaultPageSize: A4\n"));
  const RunResult usual = withoutDebug(filter(""));
  EXPECT_THAT(usual.output, HasSubstr("\n5 dark \n"));
  for (const std::string options :
       {"PageSize=Letter", "PageRegion=A5", "media=Letter", "PageSize=A4"}) {
    EXPECT_EQ(withoutDebug(filter(options)), usual) << options;
  }
}

TEST_F(MadePpdSizesTest, SizesThatAreNotKnown_CanBeAskedForAllTheSame) {
  describeSizes("%s",
                "<Option Name='Roll' PSCommand='roll '/><Option Name='Wide' PSCommand='wide '/>");
  EXPECT_EQ(queue({"sizes.xml", "--output", "queue.ppd"}).status, 0);
  set("PPD", "queue.ppd");
  EXPECT_EQ(sizeOf("A4"), "595x842 18 18 18 18");
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*DefaultPageSize: Unknown\n"));
  EXPECT_THAT(filter("").output, HasSubstr("\nroll \n"));
  EXPECT_THAT(filter("PageSize=Wide").output, HasSubstr("\nwide \n"));
  EXPECT_THAT(filter("PageSize=Long").errors,
              HasSubstr("ERROR: option PageSize: there is no choice \"Long\"; choose one of A4, "));
}

TEST_F(MadePpdSizesTest, FeaturesThatAreNotListsOfSizes_LeaveTheNameToThePpd) {
  describe("odd.xml", {feature("IntEntry", "PageSize", "DefaultValue='3' PSCommand='%d size '"),
                       feature("FloatEntry", "PageRegion", "DefaultValue='4'")});
  EXPECT_EQ(
      queue({"odd.xml", "--output", "queue.ppd"}).errors,
      "driver-feature: not in the PPD: PageRegion: a PPD has this name for the sizes of "
      "sheets\n"
      "driver-feature: not in the PPD: PageSize: a PPD has this name for the sizes of sheets\n");
  set("PPD", "queue.ppd");
  EXPECT_THAT(read("queue.ppd"), HasSubstr("*DefaultPageSize: Unknown\n"));
  EXPECT_THAT(filter("").output, HasSubstr("\n3 size \n"));
  EXPECT_THAT(filter("PageSize=7").output, HasSubstr("\n7 size \n"));
  describe("odd.xml", {feature("MultiSelect", "PageSize", "Visibility='false' PSCommand='%s'",
                               "<Option Name='A5' PSCommand='a5 '/>")});
  makeQueue("odd.xml");
  EXPECT_EQ(sizeOf("Legal"), "612x1008 18 18 18 18");
  EXPECT_THAT(filter("").output, HasSubstr("\na5 \n"));
}

}  // namespace

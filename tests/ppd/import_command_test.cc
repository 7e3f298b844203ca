// The command "import" with one file: its output and its refusals.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppd/small_ppd.h"
#include "ppd/ppd_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ImportCommandTest : public PpdTest {};

TEST_F(ImportCommandTest, Import_WithoutOutput_WritesToStandardOutput) {
  write("small.ppd", kSmallPpd);
  EXPECT_EQ(run({"import", "small.ppd"}),
            success("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<DriverConfiguration>\n"
                    "  <FeatureDescription>\n"
                    "    <BaseFeatureInfo DefaultCallbackHandler=\"DriverFeatureHostUpdate\" "
                    "LoadVORNCallbackHandler=\"DriverFeatureHostLoad\"/>\n"
                    "    <FeatureStaticGroup Name=\"Section.AnySetup\" "
                    "PSCommand=\"%%DriverSection AnySetup&#10;%s&#10;%%EndDriverSection&#10;\">\n"
                    "      <Feature FeatureType=\"MultiSelect\" Name=\"Duplex\" "
                    "DefaultValue=\"Off\" PSCommand=\"%s\">\n"
                    "        <Option Name=\"Off\" PSCommand=\"[{&#10;%%BeginFeature: *Duplex "
                    "Off&#10;/duplex false def&#10;%%EndFeature&#10;} stopped "
                    "cleartomark&#10;\"/>\n"
                    "      </Feature>\n"
                    "    </FeatureStaticGroup>\n"
                    "  </FeatureDescription>\n"
                    "</DriverConfiguration>\n"));
}

TEST_F(ImportCommandTest, Import_CodeOf5000Bytes_ComesThroughWhole) {
  std::string code = "% ";
  for (int i = 0; code.size() < 4990; ++i) {
    code += std::to_string(i) + (i % 10 == 0 ? "\n" : "%s(\xFC) ");
  }
  code += "end";
  write("long.ppd", std::string(kSmallPpd) +
                        "*OpenUI *Long: PickOne\n*DefaultLong: A\n*Long A: \"" + code +
                        "\"\n*CloseUI: *Long\n");
  ASSERT_EQ(run({"import", "long.ppd", "--output", "long.xml"}), success(""));
  const std::string text = section(postScript("long"), "AnySetup");
  EXPECT_THAT(text, HasSubstr("*Long A\n" + code + "\n%%EndFeature\n"));
  MarkedPpd ppd((folder() / "long.ppd").string());
  EXPECT_EQ(text, ppd.text(PPD_ORDER_ANY));
}

TEST_F(ImportCommandTest, Import_FileThatLibcupsRefuses_NamesTheLine) {
  write("bad.ppd", "*PPD-Adobe: \"4.3\"\n*OpenGroup: A\n*OpenGroup: B\n");
  EXPECT_EQ(run({"import", "bad.ppd", "--output", "bad.xml"}),
            failure(2,
                    "driver-feature: bad.ppd:3: libcups cannot read the PPD file: OpenGroup "
                    "without a CloseGroup first; correct the line (cupstestppd explains more)\n"));
  EXPECT_THAT(fileNames(), ElementsAre("bad.ppd"));
}

TEST_F(ImportCommandTest, Import_NoPpdFile_IsRefused) {
  write("other.ppd", "*Other: \"4.3\"\n");
  EXPECT_EQ(run({"import", "other.ppd"}),
            failure(2,
                    "driver-feature: other.ppd:1: this is not a PPD file: it does not begin with "
                    "*PPD-Adobe: \"4.\n"));
  EXPECT_EQ(
      run({"import", "absent.ppd"}),
      failure(2, "driver-feature: absent.ppd: cannot be opened: No such file or directory\n"));
  EXPECT_EQ(run({"import", "."}),
            failure(2, "driver-feature: .: cannot be opened: Is a directory\n"));
}

// libcups takes the options in front of the cut for all there are.
TEST_F(ImportCommandTest, Import_CompressedFileCutOffOrDamaged_IsRefused) {
  std::string ppd = "*PPD-Adobe: \"4.3\"\n";
  for (int i = 0; i < 2000; ++i) {
    const std::string name = "O" + std::to_string(i * 7919 % 10007);
    ppd += "*OpenUI *" + name + ": PickOne\n*" + name + " A: \"\"\n*CloseUI: *" + name + "\n";
  }
  write("whole.ppd", ppd);
  ASSERT_EQ(runIn(folder(), "/usr/bin/env", {"gzip", "whole.ppd"}).status, 0);
  EXPECT_EQ(run({"import", "whole.ppd.gz"}).status, 0);
  const std::string whole = read("whole.ppd.gz");
  std::string damaged = whole;
  damaged[damaged.size() - 6] ^= 1;  // In the sum of the bytes.
  for (const std::string& file :
       {whole.substr(0, whole.size() / 2), whole.substr(0, whole.size() - 8), damaged}) {
    write("part.ppd.gz", file);
    EXPECT_EQ(run({"import", "part.ppd.gz"}),
              failure(2,
                      "driver-feature: part.ppd.gz: the compressed file is cut off or damaged; "
                      "copy it again (gunzip -t tests it)\n"))
        << file.size();
  }
}

TEST_F(ImportCommandTest, Import_OutputCannotBeWritten_EndsWithOne) {
  write("small.ppd", kSmallPpd);
  const RunResult result = run({"import", "small.ppd", "--output", "absent/small.xml"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("absent"));
}

TEST_F(ImportCommandTest, Import_OutputIsThePpdFile_IsRefused) {
  write("small.ppd", kSmallPpd);
  EXPECT_EQ(run({"import", "small.ppd", "--output", "./small.ppd"}),
            failure(2,
                    "driver-feature: ./small.ppd: is the PPD file itself; give the description "
                    "another name\n"));
  EXPECT_EQ(read("small.ppd"), kSmallPpd);
}

TEST_F(ImportCommandTest, Import_NothingOrBothGiven_IsWrongUsage) {
  const std::string needed =
      "driver-feature: either PPD files or --all DIR is needed; driver-feature import --help "
      "explains the usage\n";
  EXPECT_EQ(run({"import"}), failure(2, needed));
  EXPECT_EQ(run({"import", "a.ppd", "--all", "."}), failure(2, needed));
}

}  // namespace

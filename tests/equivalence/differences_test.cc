// The program ppd_equivalence must find every difference that is planted.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <string>

#include "equivalence/equivalence_fixture.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(PpdEquivalenceTest, EqualDescription_IsEqual) {
  const RunResult result = compare();
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, StartsWith("corpus: 1 of 1 PPDs, 0 with findings, "));
  const json found = record();
  EXPECT_EQ(found["ppd"], "small.ppd");
  EXPECT_EQ(found["causes"], json::array());
  EXPECT_EQ(found["options"], 4);
  EXPECT_EQ(found["choices"], 8);
  EXPECT_EQ(found["jcl_options"], 1);
  // The defaults, two page sizes, and the random ones.
  EXPECT_EQ(found["vectors"], 43);
  EXPECT_EQ(found["check_errors"], 0);
}

TEST_F(PpdEquivalenceTest, Bytes_AreThoseOfEveryText) {
  write("small.xml", description_);
  const RunResult result = runIn(folder(), PPD_EQUIVALENCE,
                                 {"--description", "small.xml", "--library", DRIVER_FEATURE_LIBRARY,
                                  "--vectors", "0", "small.ppd"});
  EXPECT_EQ(result.status, 0);
  // The defaults and both page sizes: 98 bytes of Duplex, 103 of PageSize, 74
  // of Staple, 57 of JCL and 9 of its end.
  EXPECT_EQ(record()["vectors"], 3);
  EXPECT_EQ(record()["bytes"], 3 * 341);
}

TEST_F(PpdEquivalenceTest, ByteOfACode_IsFound) {
  plant("/Duplex false>>", "/Duplex falsE>>");
  expectDifference("DocumentSetup", 46,
                   "plex None\\n<</Duplex false>>setpagedevice\\n%%EndFeature\\n} stopped ",
                   "plex None\\n<</Duplex falsE>>setpagedevice\\n%%EndFeature\\n} stopped ");
}

TEST_F(PpdEquivalenceTest, CodeThatOnlyARandomChoiceShows_IsFound) {
  plant("/Duplex true>>", "/Duplex True>>");
  EXPECT_EQ(compare().status, 1);
  const json difference = record()["differences"][0];
  EXPECT_THAT(difference["vector"].get<std::string>(), StartsWith("vector "));
  EXPECT_THAT(difference["marks"].get<std::string>(), HasSubstr("Duplex=DuplexNoTumble"));
  EXPECT_THAT(difference["peer"].get<std::string>(), HasSubstr("/Duplex true>>"));
}

TEST_F(PpdEquivalenceTest, SwappedOrder_IsFound) {
  swapDuplexAndPageSize();
  expectDifference("DocumentSetup", 20,
                   "[{\\n%%BeginFeature: *Duplex None\\n<</Duplex false>>setpagedevi",
                   "[{\\n%%BeginFeature: *PageSize A4\\n<</PageSize[595 842]>>setpag");
}

TEST_F(PpdEquivalenceTest, MissingSection_IsFound) {
  const std::size_t begin = description_.find("  <FeatureStaticGroup Name=\"Section.AnySetup\"");
  const std::size_t end =
      description_.find("  <Feature FeatureType=\"MultiSelect\" Name=\"JCLEnd\"");
  ASSERT_LT(begin, end);
  ASSERT_LT(end, description_.size());
  description_.erase(begin, end - begin);
  // The choices themselves are there, in no section.
  plant("</FeatureDescription>",
        R"(<Feature FeatureType="MultiSelect" Name="Staple.Left"><Option Name="True"/>)"
        R"(<Option Name="False"/></Feature>)"
        R"(<Feature FeatureType="MultiSelect" Name="Staple.Right"><Option Name="False"/>)"
        R"(<Option Name="True"/></Feature></FeatureDescription>)");
  expectDifference("AnySetup", 0, "[{\\n%%BeginFeature: *Staple Left\\n% left\\n%", "");
}

TEST_F(PpdEquivalenceTest, WrongFrame_IsFound) {
  plant("%%DriverSection AnySetup", "%%DriverSection AnySetUp");
  EXPECT_EQ(compare().status, 1);
  EXPECT_THAT(record()["causes"], ElementsAre("difference in AnySetup", "difference in frame"));
}

TEST_F(PpdEquivalenceTest, TextOutsideOfTheSections_IsFound) {
  plant(
      "</FeatureDescription>",
      R"(<Feature FeatureType="IntEntry" Name="More" PSCommand="more %d"/></FeatureDescription>)");
  EXPECT_EQ(compare().status, 1);
  const json found = record();
  // It comes before all groups, so that no section is where it belongs.
  EXPECT_THAT(found["causes"], ElementsAre("difference in DocumentSetup", "difference in AnySetup",
                                           "difference in frame"));
  EXPECT_THAT(found["differences"][2]["ours"].get<std::string>(),
              StartsWith("more 0%DriverSection"));
}

TEST_F(PpdEquivalenceTest, OtherJcl_IsFound) {
  plant("SET ECO=OFF", "SET ECO = OFF");
  expectDifference("JCL", 21, "@PJL JOB\\n@PJL SET ECO=OFF\\n@PJL ENTER LANGUAGE=POSTSCRIPT\\n",
                   "@PJL JOB\\n@PJL SET ECO = OFF\\n@PJL ENTER LANGUAGE=POSTSCRIPT\\n");
}

TEST_F(PpdEquivalenceTest, OtherEndOfJcl_IsFound) {
  plant("@PJL EOJ&#10;", "@PJL EOJ");
  expectDifference("JCLEnd", 8, "@PJL EOJ\\n", "@PJL EOJ");
}

TEST_F(PpdEquivalenceTest, OtherDefault_IsFound) {
  plant("DefaultValue=\"A4\"", "DefaultValue=\"A5\"");
  EXPECT_EQ(compare().status, 1);
  const json found = record();
  EXPECT_THAT(found["causes"], ElementsAre("difference in DocumentSetup"));
  EXPECT_EQ(found["difference_count"], 1);
  EXPECT_EQ(found["differences"][0]["vector"], "defaults");
}

TEST_F(PpdEquivalenceTest, OtherOutputAfterTheDefaultsAreRestored_IsFound) {
  plantRoutine("countInOutput");
  EXPECT_EQ(compare().status, 1);
  EXPECT_THAT(record()["causes"],
              ElementsAre("difference in DocumentSetup", "difference in AnySetup",
                          "difference in frame", "restored defaults"));
}

TEST_F(PpdEquivalenceTest, EqualsInAnotherOrder_HaveTheirOwnCause) {
  std::string ppd = read("small.ppd");
  const std::string order = "*OrderDependency: 20 DocumentSetup *PageSize";
  const std::size_t place = ppd.find(order);
  ASSERT_NE(place, std::string::npos);
  // PageSize comes after Duplex all the same, by its name. In the description
  // it comes first.
  write("small.ppd",
        ppd.replace(place, order.size(), "*OrderDependency: 10 DocumentSetup *PageSize"));
  EXPECT_EQ(compare().status, 0);
  swapDuplexAndPageSize();
  EXPECT_EQ(compare().status, 1);
  EXPECT_THAT(record()["causes"], ElementsAre("order of equals in DocumentSetup"));
}

TEST_F(PpdEquivalenceTest, MissingFeature_IsFound) {
  plant("Name=\"Duplex\"", "Name=\"Tumble\"");
  EXPECT_EQ(expectFailure("features"),
            "there is no feature Duplex for the value None (PageSize=A4)");
}

TEST_F(PpdEquivalenceTest, MissingChoice_IsFound) {
  plant("Name=\"DuplexNoTumble\"", "Name=\"Tumble\"");
  EXPECT_THAT(expectFailure("features"),
              StartsWith("the feature Duplex refuses the value DuplexNoTumble (PageSize="));
}

TEST_F(PpdEquivalenceTest, ErrorOfTheCheck_IsFound) {
  plant("Name=\"JCLEco\" DefaultValue=\"Off\"", "Name=\"JCLEco\" DefaultValue=\"Of\"");
  EXPECT_EQ(compare().status, 1);
  const json found = record();
  EXPECT_EQ(found["check_errors"], 1);
  EXPECT_THAT(found["causes"], ElementsAre("check"));
  EXPECT_THAT(found["detail"].get<std::string>(), HasSubstr("Of"));
}

}  // namespace

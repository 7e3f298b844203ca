// What "show" prints about one feature or group.

#include <nlohmann/json.hpp>

#include "host/program_runner.h"

namespace {

class ShowDetailsTest : public ProgramTest {
 protected:
  ShowDetailsTest() {
    describe("office.xml",
             {feature("TextEntry", "Pin",
                      "DefaultValue='01' MaxTextLength='4' AddCallbackRoutine='changed'"
                      " TextValidationCharSet='ABCDEabc0123456789-'"),
              "<FeatureStaticGroup Name='Finishing' PSCommand='[%s]'>",
              "<Feature FeatureType='MultiSelect' Name='Staple' DefaultValue='Off'>"
              "<O Name='Off' PSCommand='0'/><O Name='On' PSCommand='1' Sensitivity='false'/>"
              "</Feature>",
              "</FeatureStaticGroup>"});
  }
};

TEST_F(ShowDetailsTest, Show_Feature_PrintsEverything) {
  const RunResult result = run({"show", "office.xml", "Pin", "-q"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  for (const char* line :
       {"Name            Pin\n", "Type            TextEntry\n", "Defined         office.xml:2\n",
        "Limits          at most 4 characters, only A-E 0-9 and \"abc-\"\n",
        "Change routine  changed\n", "ValueString            01\n", "MaxTextLength          4\n"}) {
    EXPECT_NE(result.output.find(line), std::string::npos) << line << result.output;
  }
}

TEST_F(ShowDetailsTest, Show_FeatureInGroup_PrintsGroupsAndOptions) {
  const RunResult result = run({"show", "office.xml", "Staple"});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("In groups  Finishing\n"), std::string::npos) << result.output;
  EXPECT_TRUE(
      result.output.ends_with("\n"
                              "OPTION  PSCommand  Sensitivity  Visibility\n"
                              "Off     0          true         true\n"
                              "On      1          false        true\n"))
      << result.output;
}

TEST_F(ShowDetailsTest, ShowJson_Group_HoldsMembersAndProperties) {
  const RunResult result = run({"show", "office.xml", "Finishing", "--json"});
  EXPECT_EQ(result.status, 0);
  const auto json = nlohmann::json::parse(result.output);
  EXPECT_EQ(json["type"], "static group");
  EXPECT_EQ(json["line"], 3);
  EXPECT_EQ(json["members"], nlohmann::json::array({"Staple"}));
  EXPECT_EQ(json["properties"]["PSCommand"], "[%s]");
  EXPECT_FALSE(json.contains("options"));
}

TEST_F(ShowDetailsTest, Show_UnknownName_OffersTheNearest) {
  EXPECT_EQ(run({"show", "office.xml", "Finishin", "-q"}),
            failure(2,
                    "driver-feature: there is no feature or group \"Finishin\"; did you mean "
                    "\"Finishing\"?\n"));
  EXPECT_EQ(run({"show", "office.xml", "Quite another", "-q"}),
            failure(2,
                    "driver-feature: there is no feature or group \"Quite another\"; "
                    "\"driver-feature show office.xml\" lists them\n"));
}

}  // namespace

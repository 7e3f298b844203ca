// Records of a page.

#include "page_process/page_fixture.h"

namespace driver_feature::testing {
namespace {

class PageRecordsTest : public ::testing::Test {
 protected:
  Json ask(const std::string& request) { return page_.askText(request); }
  Json records(const std::string& rest) {
    return ask(R"({"do":"records","group":"PageExceptions",)" + rest + "}");
  }
  Json rows() { return ask(R"({"do":"state"})")["records"]["PageExceptions"]; }

  PageClient page_{officeLaser()};
};

constexpr const char* kLate = R"("action":"add","values":["12","14","Recycled","LongEdge"])";
constexpr const char* kEarly = R"("action":"add","values":[1,2,"CardStock","OneSided"])";

TEST_F(PageRecordsTest, Added_AreInTheOrderOfTheSortRoutine) {
  EXPECT_EQ(rows(), Json::array());
  const Json reply = records(kLate);
  EXPECT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(reply["records"],
            Json::parse(R"({"PageExceptions":[["12","14","Recycled","LongEdge"]]})"));
  EXPECT_EQ(reply["outputs"].size(), 1U);  // The ticket alone.
  EXPECT_EQ(reply["notifications"], Json::array({""}));
  EXPECT_EQ(records(kEarly)["records"], Json::parse(R"({"PageExceptions":
      [["1","2","CardStock","OneSided"],["12","14","Recycled","LongEdge"]]})"));
}

TEST_F(PageRecordsTest, Change_KeepsTheOthersAndWhatIsNull) {
  records(kLate);
  records(kEarly);
  records(R"("action":"change","index":0,"values":["20",null,"Plain",null])");
  EXPECT_EQ(rows(), Json::parse(R"([["20","2","Plain","OneSided"],
      ["12","14","Recycled","LongEdge"]])"));
  records(R"("action":"sort")");
  EXPECT_EQ(rows(), Json::parse(R"([["12","14","Recycled","LongEdge"],
      ["20","2","Plain","OneSided"]])"));
}

TEST_F(PageRecordsTest, RemovedAndCleared_AreGone) {
  records(kLate);
  records(kEarly);
  EXPECT_EQ(records(R"("action":"remove","index":0)")["records"],
            Json::parse(R"({"PageExceptions":[["12","14","Recycled","LongEdge"]]})"));
  records(kEarly);
  EXPECT_EQ(records(R"("action":"clear")")["records"], Json::parse(R"({"PageExceptions":[]})"));
}

TEST_F(PageRecordsTest, RefusedActions_ChangeNothing) {
  records(kEarly);
  const std::string place = " (" + std::string(DESCRIPTIONS) + "/office_laser.xml:340)";
  struct Row {
    const char* request;
    std::string problem;
  };
  const Row rows[] = {
      {R"("action":"add","values":["0","2","Plain","OneSided"])",
       "\"ExceptionFirstPage\": 0 is out of range; give a whole number, from 1 to 9999" + place},
      {R"("action":"add","values":["1"])",
       "\"PageExceptions\" has 4 columns; give that many values"},
      {R"("action":"add","values":["1",null,"Plain","OneSided"])",
       "member \"ExceptionLastPage\" is missing; give it a value"},
      {R"("action":"remove","index":1)",
       "there is no record 1 in \"PageExceptions\"; the last one is 0"},
      {R"("action":"remove","index":-1)", "no record is named; give \"index\""},
      {R"("action":"change","index":5,"values":["1","2","Plain","OneSided"])",
       "there is no record 5 in \"PageExceptions\"; the last one is 0"},
      {R"("action":"shuffle")",
       "there is no action \"shuffle\"; give one of add, change, remove, sort, clear"},
  };
  for (const auto& [request, problem] : rows) {
    const Json reply = records(request);
    EXPECT_EQ(reply["ok"], false) << request;
    EXPECT_EQ(reply["problem"], problem);
    EXPECT_EQ(reply["serial"], 1);
  }
  EXPECT_EQ(ask(R"({"do":"records","group":"Pages","action":"clear"})")["problem"],
            "there is no dynamic group \"Pages\"; give one of PageExceptions");
  EXPECT_EQ(this->rows(), Json::parse(R"([["1","2","CardStock","OneSided"]])"));
}

TEST_F(PageRecordsTest, CommandAndQuery_HaveThem) {
  records(kLate);
  records(kEarly);
  ask(R"({"do":"set","settings":[["JobName","it's \u00e4 here"]]})");
  const Json state = ask(R"({"do":"state"})");
  EXPECT_EQ(runCommand(state["command"]), outputsOf(state));
  ask(R"({"do":"reset"})");
  EXPECT_EQ(rows(), Json::array());
  const Json reply = ask(Json({{"do", "open"}, {"query", state["query"]}}).dump());
  EXPECT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(outputsOf(ask(R"({"do":"state"})")), outputsOf(state));
}

TEST_F(PageRecordsTest, Open_TakesThem) {
  records(kLate);
  Json reply = ask(R"({"do":"open","settings":[],"records":{"PageExceptions":
      [["5","6","Plain","OneSided"],["3","4","Plain","OneSided"]]}})");
  EXPECT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(rows(), Json::parse(R"([["5","6","Plain","OneSided"],["3","4","Plain","OneSided"]])"));
  reply = ask(R"({"do":"open","records":{"PageExceptions":[["0","6","Plain","OneSided"]]}})");
  EXPECT_EQ(reply["ok"], false);
  EXPECT_EQ(reply["feature"], "PageExceptions");
  EXPECT_EQ(rows().size(), 2U);
  reply = ask(R"({"do":"restore","records":{"PageExceptions":[["0","6","Plain","OneSided"],
      ["8","9","Plain","OneSided"]],"Gone":[["1"]]}})");
  EXPECT_EQ(reply["lost"], Json::parse(R"(["Gone","PageExceptions"])"));
  EXPECT_EQ(rows(), Json::parse(R"([["8","9","Plain","OneSided"]])"));
}

TEST(PageSecretRecordsTest, SecretColumns_AreMaskedAndKept) {
  PageClient page(
      requestFor(writtenFile("secret.xml", description(R"(<FeatureDynamicGroup Name="Jobs">
<FeatureStaticGroup Name="Job">
<Feature FeatureType="TextEntry" Name="Title" DefaultValue="a"/>
<Feature FeatureType="TextEntry" Name="Key" Encrypted="true" DefaultValue="k"/>
</FeatureStaticGroup>
</FeatureDynamicGroup>
)"))));
  Json reply =
      page.askText(R"({"do":"records","group":"Jobs","action":"add","values":["one","s3cret"]})");
  ASSERT_EQ(reply["ok"], true) << reply;
  EXPECT_EQ(reply["records"], Json::parse(R"({"Jobs":[["one","****"]]})"));
  EXPECT_EQ(reply.dump().find("s3cret"), std::string::npos);
  EXPECT_EQ(reply["query"], "");
  reply = page.askText(
      R"({"do":"records","group":"Jobs","action":"change","index":0,"values":["two",null]})");
  EXPECT_EQ(reply["records"], Json::parse(R"({"Jobs":[["two","****"]]})"));
}

}  // namespace
}  // namespace driver_feature::testing

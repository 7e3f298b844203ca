// Reports for programs: GitHub's workflow commands and SARIF.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/check/github_report.h"
#include "host/check/sarif_report.h"

namespace driver_feature::check {
namespace {

FileReport report() {
  FileReport report;
  report.file = "my,dir/a:b \xC3\xA4.xml";
  report.usable = true;
  report.findings = {{Code::kUnknownAttribute, {3, 7}, "50% of\nit:, so", "remove\rit", {}},
                     {Code::kNoDefault, {}, "none", "give one", {}}};
  return report;
}

TEST(GithubReportTest, Report_SpecialCharacters_AreEscapedAsGithubWants) {
  EXPECT_EQ(reportGithub({report()}),
            "::error file=my%2Cdir/a%3Ab \xC3\xA4.xml,line=3,col=7,title=DF203::50%25 of%0Ait:, "
            "so; remove%0Dit\n"
            "::warning file=my%2Cdir/a%3Ab \xC3\xA4.xml,title=DF303::none; give one\n");
  EXPECT_EQ(reportGithub({FileReport{}}), "");
}

TEST(SarifReportTest, Report_Findings_AreResultsWithRulesPlacesAndSuppressions) {
  FileReport one = report();
  one.allowed = {{{Code::kNoLineEnd, {5, 2}, "open", "end it", {}}, "on purpose"},
                 {{Code::kNoLineEnd, {6, 2}, "open", "end it", {}}, ""}};
  FileReport two;
  two.file = "/tmp/x.xml";
  two.findings = {{Code::kUnreadable, {}, "gone", "give it", {}}};
  const auto sarif = nlohmann::json::parse(reportSarif({one, two}, "1.2.3"));
  EXPECT_EQ(sarif["version"], "2.1.0");
  EXPECT_EQ(sarif["$schema"], "https://json.schemastore.org/sarif-2.1.0.json");
  const auto& run = sarif["runs"][0];
  EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"], false);
  const auto& driver = run["tool"]["driver"];
  EXPECT_EQ(driver["name"], "driver-feature");
  EXPECT_EQ(driver["version"], "1.2.3");
  ASSERT_EQ(run["results"].size(), 5U);
  const nlohmann::json first = {{"ruleId", "DF203"},
                                {"ruleIndex", run["results"][0]["ruleIndex"]},
                                {"level", "error"},
                                {"message", {{"text", "50% of\nit:, so; remove\rit"}}},
                                {"locations",
                                 {{{"physicalLocation",
                                    {{"artifactLocation", {{"uri", "my%2Cdir/a%3Ab%20%C3%A4.xml"}}},
                                     {"region", {{"startLine", 3}, {"startColumn", 7}}}}}}}}};
  EXPECT_EQ(run["results"][0], first);
  EXPECT_EQ(run["results"][1]["level"], "warning");
  EXPECT_FALSE(run["results"][1]["locations"][0]["physicalLocation"].contains("region"));
  const nlohmann::json reasoned = {{{"kind", "inSource"}, {"justification", "on purpose"}}};
  EXPECT_EQ(run["results"][2]["suppressions"], reasoned);
  EXPECT_EQ(run["results"][3]["suppressions"], nlohmann::json::parse(R"([{"kind":"inSource"}])"));
  EXPECT_EQ(run["results"][4]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
            "file:///tmp/x.xml");
  for (const auto& result : run["results"]) {
    const std::size_t rule = result["ruleIndex"];
    EXPECT_EQ(driver["rules"][rule]["id"], result["ruleId"]);
  }
}

}  // namespace
}  // namespace driver_feature::check

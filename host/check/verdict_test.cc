#include "host/check/verdict.h"

#include <gtest/gtest.h>

namespace driver_feature::check {
namespace {

const host::Position kPlace = {4, 2};

Finding refusedAt(int line, const std::vector<std::string>& log) {
  return refusal(Code::kNoOptions, {line, 1}, "no options", "add some", log);
}

LoadReport ended(const std::vector<LoadLine>& lines) {
  return {false, "exit status 1", lines};
}

TEST(Verdict, CompareVerdicts_BothAgree_AddsNothing) {
  Findings clean;
  compareVerdicts({true, "loaded", {{3, "using 0."}}}, kPlace, clean);
  EXPECT_TRUE(clean.empty());
  Findings refused = {refusedAt(7, {"a", "b"}), refusedAt(9, {"c"})};
  compareVerdicts(ended({{1, "a"}, {3, "warned"}, {1, "b"}}), kPlace, refused);
  EXPECT_EQ(refused.size(), 2U);
}

TEST(Verdict, CompareVerdicts_OnlyTheLoadRoutineIsMissing_IsNotAReason) {
  Findings refused = {refusedAt(7, {"a"})};
  compareVerdicts(
      ended({{1, "FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer"},
             {1, "a"}}),
      kPlace, refused);
  EXPECT_EQ(refused.size(), 1U);
}

TEST(Verdict, CompareVerdicts_LibraryRefusesWhatTheRulesPass_IsAFinding) {
  Findings findings;
  compareVerdicts({false, "signal 11", {{1, "a"}}}, kPlace, findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].code, Code::kLoadRefused);
  EXPECT_EQ(findings[0].position, kPlace);
  EXPECT_EQ(findings[0].sentence, "the library did not load the description (signal 11)");
  EXPECT_EQ(findings[0].log, std::vector<std::string>{"a"});
}

TEST(Verdict, CompareVerdicts_LibraryLoadsWhatTheRulesRefuse_IsAFinding) {
  Findings findings = {refusedAt(7, {"a"})};
  compareVerdicts({true, "loaded", {}}, kPlace, findings);
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[1].code, Code::kLoadAccepted);
  EXPECT_EQ(findings[1].sentence, "the library loaded the description despite line 7");
}

TEST(Verdict, CompareVerdicts_AnotherReason_IsAFinding) {
  Findings findings = {refusedAt(7, {"a"}), refusedAt(9, {"c"})};
  compareVerdicts(ended({{1, "c"}}), kPlace, findings);
  ASSERT_EQ(findings.size(), 3U);
  EXPECT_EQ(findings[2].code, Code::kOtherReason);
  EXPECT_EQ(
      findings[2].sentence,
      "the library refused the description (exit status 1) for a different reason than that of "
      "line 7");
  EXPECT_EQ(findings[2].log, std::vector<std::string>{"c"});
}

}  // namespace
}  // namespace driver_feature::check

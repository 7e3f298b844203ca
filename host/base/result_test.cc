#include "host/base/result.h"

#include <gtest/gtest.h>

#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

TEST(ResultTest, Describe_PlaceAndRemedy_ComeBeforeAndAfterTheText) {
  Problem problem{Problem::Kind::kMalformed, "is empty", "", "", "a.xml"};
  EXPECT_EQ(describe(problem), "a.xml: is empty");
  problem.position = {3, 0};
  EXPECT_EQ(describe(problem), "a.xml:3: is empty");
  problem.position = {3, 7};
  problem.remedy = "write a root";
  EXPECT_EQ(describe(problem), "a.xml:3:7: is empty; write a root");
  problem.file.clear();
  problem.position = {};
  EXPECT_EQ(describe(problem), "is empty; write a root");
}

TEST(ResultTest, FailureOf_WithWhatItIsAbout_KeepsKindAndPlace) {
  Result<int> result = Failure(Problem{Problem::Kind::kUnreadable, "no", "", "", "f", {2, 0}});
  const Result<> passedOn = failureOf(result, "-o A=1");
  EXPECT_EQ(passedOn.error().kind, Problem::Kind::kUnreadable);
  EXPECT_EQ(problemText(passedOn), "f:2: -o A=1: no");
}

TEST(ResultTest, FailureOfAll_SeveralProblems_TheFirstHasTheOthers) {
  const Result<> result = failureOfAll({{Problem::Kind::kRefused, "a", ""},
                                        {Problem::Kind::kRefused, "b", ""},
                                        {Problem::Kind::kRefused, "c", ""}});
  EXPECT_EQ(result.error().more.size(), 2U);
  EXPECT_EQ(problemText(result), "a\nb\nc");
}

}  // namespace

}  // namespace driver_feature::host

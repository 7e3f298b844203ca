#include "programs/driver_feature/commands/import_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::cli {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> outputsOf(const ImportPlan& plan) {
  std::vector<std::string> outputs;
  for (const ImportJob& job : plan.jobs) outputs.push_back(job.output);
  return outputs;
}

TEST(ImportPlanTest, Files_WithoutAFolder_GoBesideThemselves) {
  const ImportPlan plan =
      planFiles({"a.ppd", "b/c.PPD.gz", "/d/e.ppd.GZ", "f", "g.gz", ".ppd", "h.ppd.txt"}, "");
  EXPECT_THAT(outputsOf(plan), ElementsAre("a.xml", "b/c.xml", "/d/e.xml", "f.xml", "g.xml",
                                           ".ppd.xml", "h.ppd.txt.xml"));
  EXPECT_THAT(plan.problems, IsEmpty());
}

TEST(ImportPlanTest, Files_WithAFolder_GoThere) {
  EXPECT_THAT(outputsOf(planFiles({"a.ppd", "b/c.ppd"}, "out")),
              ElementsAre("out/a.xml", "out/c.xml"));
}

TEST(ImportPlanTest, Files_TwoForOneDescription_SecondIsLeftOut) {
  const ImportPlan plan = planFiles({"x/a.ppd", "y/a.ppd.gz", "y/b.ppd"}, "out");
  EXPECT_THAT(outputsOf(plan), ElementsAre("out/a.xml", "out/b.xml"));
  EXPECT_THAT(plan.problems,
              ElementsAre("y/a.ppd.gz: its description would replace that of x/a.ppd, out/a.xml; "
                          "import it on its own"));
}

}  // namespace

}  // namespace driver_feature::cli

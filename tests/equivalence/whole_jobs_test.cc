// Whole jobs of the built programs beside those of the print scheduler's
// pstops, with faults planted in the description.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include <filesystem>

#include "equivalence/equivalence_fixture.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;

const std::vector<std::string> kWhole = {"--programs", PROGRAM_FOLDER, "--pstops", PSTOPS};

class WholeJobsTest : public PpdEquivalenceTest {
 protected:
  // Compares the description and returns the first difference of whole jobs,
  // which must be the only cause but that of `part`.
  json difference(const std::string& part, const std::string& whole) {
    EXPECT_EQ(compare(kWhole).status, 1);
    const json found = record();
    EXPECT_EQ(found["causes"], json::array({"difference in " + part, "difference in " + whole}));
    return found["differences"].size() > 1 ? found["differences"][1] : json();
  }
};

TEST_F(WholeJobsTest, EqualJobs_AreCounted) {
  const RunResult result = compare(kWhole);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(record()["causes"], json::array());
  EXPECT_THAT(result.output, HasSubstr("             4  whole jobs compared\n"));
  EXPECT_THAT(result.output,
              HasSubstr("             1  PPDs with job-control language in front of them\n"));
  const auto more = compare({"--programs", PROGRAM_FOLDER, "--whole-vectors", "4"});
  EXPECT_THAT(more.output, HasSubstr("            10  whole jobs compared\n"));
}

TEST_F(WholeJobsTest, ImportedDescription_GivesEqualJobs) {
  std::vector<std::string> arguments = {"--library", DRIVER_FEATURE_LIBRARY};
  arguments.insert(arguments.end(), kWhole.begin(), kWhole.end());
  arguments.push_back("small.ppd");
  EXPECT_EQ(runIn(folder(), PPD_EQUIVALENCE, arguments).status, 0);
  EXPECT_EQ(record()["causes"], json::array());
  EXPECT_EQ(fileNames(), (std::vector<std::string>{"descriptions", "jobs", "records.jsonl",
                                                   "report.json", "report.txt", "small.ppd"}));
}

TEST_F(WholeJobsTest, NoProgramsNamed_NoJobsAreMade) {
  EXPECT_THAT(compare().output, HasSubstr("             0  whole jobs compared\n"));
}

TEST_F(WholeJobsTest, OtherCode_IsADifferenceOfTheJob) {
  plant("[595 842]>>", "[595 843]>>");
  const json found = difference("DocumentSetup", "whole job");
  EXPECT_EQ(found["vector"], "whole job 0");
  EXPECT_THAT(found["peer"].get<std::string>(), HasSubstr("[595 842]"));
  EXPECT_THAT(found["ours"].get<std::string>(), HasSubstr("[595 843]"));
}

TEST_F(WholeJobsTest, OtherJobControl_IsADifferenceOfTheJob) {
  plant("ECO=OFF", "ECO=Off");
  EXPECT_THAT(difference("JCL", "whole job")["ours"].get<std::string>(), HasSubstr("ECO=Off"));
}

// The filter fails only at what other filters have converted.
TEST_F(WholeJobsTest, OtherConvertedJob_IsADifference) {
  write("driver-feature", "#!/bin/sh\nexec " PROGRAM_FOLDER "/driver-feature \"$@\"\n");
  write("driver-feature-filter",
        "#!/bin/sh\nif [ \"$CONTENT_TYPE\" = application/pdf ]; then\n" PROGRAM_FOLDER
        "/driver-feature-filter \"$@\" | sed 's/(two)/(Two)/'\nelse\nexec " PROGRAM_FOLDER
        "/driver-feature-filter \"$@\"\nfi\n");
  for (const char* program : {"driver-feature", "driver-feature-filter"}) {
    std::filesystem::permissions(folder() / program, std::filesystem::perms::owner_all);
  }
  EXPECT_EQ(compare({"--programs", folder()}).status, 1);
  EXPECT_EQ(record()["causes"], json::array({"difference in converted job"}));
  EXPECT_THAT(record()["differences"][0]["ours"].get<std::string>(), HasSubstr("(Two)"));
}

TEST_F(WholeJobsTest, QueueThatCannotBeMade_IsAFailure) {
  EXPECT_EQ(compare({"--programs", "/none"}).status, 1);
  EXPECT_EQ(record()["causes"], json::array({"whole job"}));
  EXPECT_EQ(record()["detail"], "driver-feature queue ends with 127: ");
}

TEST_F(WholeJobsTest, PstopsThatFails_IsAFailure) {
  EXPECT_EQ(compare({"--programs", PROGRAM_FOLDER, "--pstops", "/bin/false"}).status, 1);
  EXPECT_EQ(record()["causes"], json::array({"whole job"}));
  EXPECT_EQ(record()["detail"], "pstops ends with 1: : ");
}

}  // namespace

// The program ppd_equivalence must survive what goes wrong, and report it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "equivalence/equivalence_fixture.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

TEST_F(PpdEquivalenceTest, NoDescription_ThePpdIsImported) {
  const RunResult result =
      runIn(folder(), PPD_EQUIVALENCE,
            {"--library", DRIVER_FEATURE_LIBRARY, "--vectors", "40", "small.ppd"});
  EXPECT_EQ(result.status, 0);
  const json found = record();
  EXPECT_EQ(found["causes"], json::array());
  EXPECT_EQ(found["vectors"], 43);
  // A description is kept when something is wrong with it.
  EXPECT_TRUE(std::filesystem::is_empty(folder() / "descriptions"));
}

// The folder of the reports is the present one when no other is given.
TEST_F(PpdEquivalenceTest, FilesOfAnEarlierRun_AreRemovedAndNoOthers) {
  for (const std::string name : {"descriptions", "jobs"}) {
    std::filesystem::create_directories(folder() / name / "more");
    for (const std::string file : {"7.xml", "7.ps", "a7.xml", "a7.ps", "more/7.xml"}) {
      write(std::string(name).append("/").append(file), "");
    }
  }
  const RunResult result = runIn(folder(), PPD_EQUIVALENCE,
                                 {"--library", DRIVER_FEATURE_LIBRARY, "--jobs", "0", "small.ppd"});
  EXPECT_EQ(result.status, 0);
  const auto namesIn = [this](const std::string& name) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder() / name)) {
      names.insert(entry.path().lexically_relative(folder() / name));
    }
    return names;
  };
  EXPECT_THAT(namesIn("descriptions"),
              ElementsAre("7.ps", "a7.ps", "a7.xml", "more", "more/7.xml"));
  EXPECT_THAT(namesIn("jobs"), ElementsAre("7.xml", "a7.ps", "a7.xml", "more", "more/7.xml"));
}

TEST_F(PpdEquivalenceTest, List_NamesPpdsFromTheRoot) {
  std::filesystem::create_directories(folder() / "root/a folder");
  write("root/a folder/b.ppd", read("small.ppd"));
  write("list", "# text\n\na folder/b.ppd\n");
  const RunResult result = runIn(folder(), PPD_EQUIVALENCE,
                                 {"--library", DRIVER_FEATURE_LIBRARY, "--root", "root", "--list",
                                  "list", "root/a folder/b.ppd", "small.ppd"});
  EXPECT_EQ(result.status, 0);
  std::istringstream lines(read("records.jsonl"));
  std::vector<std::string> names;
  for (std::string line; std::getline(lines, line);) names.push_back(json::parse(line)["ppd"]);
  EXPECT_THAT(names, UnorderedElementsAre("a folder/b.ppd", "small.ppd", "a folder/b.ppd"));
}

TEST_F(PpdEquivalenceTest, Jobs_AreSpreadOverThePpds) {
  const RunResult result = runIn(folder(), PPD_EQUIVALENCE,
                                 {"--library", DRIVER_FEATURE_LIBRARY, "--jobs", "2", "small.ppd",
                                  "small.ppd", "small.ppd", "small.ppd"});
  EXPECT_EQ(result.status, 0);
  std::set<std::string> jobs;
  for (const auto& entry : std::filesystem::directory_iterator(folder() / "jobs")) {
    jobs.insert(entry.path().filename());
  }
  EXPECT_THAT(jobs, ElementsAre("1.ps", "3.ps"));
  EXPECT_THAT(read("jobs/1.ps"), HasSubstr("\n%%BeginFeature: *Duplex None\n"));
}

TEST_F(PpdEquivalenceTest, DescriptionThatTheLibraryRefuses_IsFound) {
  plant("Name=\"JCLBegin\"", "NoName=\"JCLBegin\"");
  EXPECT_EQ(compare().status, 1);
  EXPECT_THAT(record()["causes"], ElementsAre("end (status 1) in load"));
}

TEST_F(PpdEquivalenceTest, FileThatIsNotAPpd_IsRefusedByLibcups) {
  write("small.ppd", "no PPD\n");
  EXPECT_EQ(expectFailure("refused by libcups"), "Missing asterisk in column 1 in line 1");
}

TEST_F(PpdEquivalenceTest, Crash_IsFound) {
  plantRoutine("crashInOutput");
  expectFailure("crash (signal 6) in compare");
}

TEST_F(PpdEquivalenceTest, EndOfTheProcess_IsFoundWithWhatItSaid) {
  plantRoutine("endInOutput");
  EXPECT_EQ(expectFailure("end (status 3) in compare"), "going\n");
}

TEST_F(PpdEquivalenceTest, EndWithoutAResult_IsFound) {
  plantRoutine("leaveInOutput");
  expectFailure("end (status 0) in compare");
}

TEST_F(PpdEquivalenceTest, Hang_EndsAtTheLimit) {
  plantRoutine("hangInOutput");
  expectFailure("time limit in compare", {"--limit", "1"});
  EXPECT_TRUE(hangingProcessIsGone());
}

// The check loads the description in a process of its own.
TEST_F(PpdEquivalenceTest, HangOfTheTrialLoad_EndsAtTheLimit) {
  plant("DriverFeatureHostUpdate", "hangInUpdate");
  plant("Name=\"Duplex\"", "Name=\"Duplex\" Sensitivity=\"true\"");
  expectFailure("time limit in check", {"--limit", "1"});
  EXPECT_TRUE(hangingProcessIsGone());
}

TEST_F(PpdEquivalenceTest, EndOfTheProgram_LeavesNoProcess) {
  plantRoutine("hangInOutput");
  compareAndInterrupt();
  EXPECT_TRUE(hangingProcessIsGone());
}

TEST_F(PpdEquivalenceTest, EndOfTheProgram_LeavesNoTrialLoad) {
  plant("DriverFeatureHostUpdate", "hangInUpdate");
  plant("Name=\"Duplex\"", "Name=\"Duplex\" Sensitivity=\"true\"");
  compareAndInterrupt();
  EXPECT_TRUE(hangingProcessIsGone());
}

TEST_F(PpdEquivalenceTest, FailureOfOne_DoesNotTouchTheOthers) {
  write("other.ppd", "no PPD\n");
  EXPECT_EQ(compare({"other.ppd"}).status, 1);
  const json report = json::parse(read("report.json"));
  EXPECT_EQ(report["figures"]["files"], 2);
  EXPECT_EQ(report["figures"]["equal"], 1);
  ASSERT_EQ(report["failures"].size(), 1U);
  EXPECT_EQ(report["failures"][0]["ppd"], "other.ppd");
}

TEST_F(PpdEquivalenceTest, ListedException_IsNotAFailure) {
  plant("[595 842]>>", "[595 843]>>");
  write("exceptions", "difference in DocumentSetup | small.ppd | planted\n");
  EXPECT_EQ(compare({"--exceptions", "exceptions"}).status, 0);
  EXPECT_THAT(read("report.txt"),
              HasSubstr("\nExceptions:\n  small.ppd: difference in DocumentSetup: planted\n"));
}

TEST_F(PpdEquivalenceTest, ExceptionThatDoesNotOccur_IsAFailure) {
  write("exceptions", "difference in JCL | small.ppd | once\n");
  EXPECT_EQ(compare({"--exceptions", "exceptions"}).status, 1);
  EXPECT_THAT(read("report.txt"), HasSubstr("\nExceptions that have not occurred; remove them:\n"
                                            "  difference in JCL | small.ppd\n"));
}

TEST_F(PpdEquivalenceTest, ExceptionOfAnotherPpd_CountsInACompleteRunOnly) {
  write("exceptions", "difference in JCL | other.ppd | once\n");
  EXPECT_EQ(compare({"--exceptions", "exceptions"}).status, 0);
  EXPECT_EQ(compare({"--exceptions", "exceptions", "--complete"}).status, 1);
}

TEST_F(PpdEquivalenceTest, SameSeed_SameChoices) {
  plant("/Duplex true>>", "/Duplex True>>");
  compare({"--seed", "7"});
  const json first = record()["differences"];
  compare({"--seed", "7"});
  EXPECT_EQ(record()["differences"], first);
  compare({"--seed", "8"});
  EXPECT_NE(record()["differences"], first);
}

TEST_F(PpdEquivalenceTest, UnusableArguments_AreRefused) {
  const RunResult nothing = runIn(folder(), PPD_EQUIVALENCE, {});
  EXPECT_EQ(nothing, (RunResult{2, "",
                                "ppd_equivalence: there is no PPD to examine; name files, or a "
                                "list with --list\n"}));
  EXPECT_EQ(runIn(folder(), PPD_EQUIVALENCE, {"--list", "none"}),
            (RunResult{2, "", "ppd_equivalence: none: cannot be read\n"}));
  write("exceptions", "\n# text\nwithout | parts\n");
  EXPECT_EQ(compare({"--exceptions", "exceptions"}),
            (RunResult{2, "",
                       "ppd_equivalence: exceptions: line 3: is not of the form CAUSE | PPD | "
                       "REASON\n"}));
}

}  // namespace

// The program ppd_equivalence must find what is planted.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "host/program_runner.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class PpdEquivalenceTest : public ProgramTest {
 protected:
  PpdEquivalenceTest() : description_(readFile(CORPUS_TEST_FOLDER "/small.xml")) {
    write("small.ppd", readFile(CORPUS_TEST_FOLDER "/small.ppd"));
  }

  // Replaces the first `old` of the description; it must be there.
  void plant(const std::string& old, const std::string& text) {
    const std::size_t place = description_.find(old);
    ASSERT_NE(place, std::string::npos) << old;
    description_.replace(place, old.size(), text);
  }

  // A feature that calls the routine when PostScript is written.
  void plantRoutine(const std::string& routine) {
    plant("</FeatureDescription>",
          R"(<Feature FeatureType="UIOnly" Name="Routine" AddPSCallbackRoutine=")" + routine +
              R"("/></FeatureDescription>)");
  }

  RunResult compare(std::vector<std::string> arguments = {}) {
    write("small.xml", description_);
    arguments.insert(arguments.begin(),
                     {"--description", "small.xml", "--callbacks", CORPUS_ROUTINES, "--library",
                      DRIVER_FEATURE_LIBRARY, "--vectors", "40"});
    arguments.push_back("small.ppd");
    return runIn(folder(), PPD_EQUIVALENCE, arguments);
  }

  json record() const { return json::parse(read("records.jsonl")); }

  // Expects one cause, and its only difference.
  void expectDifference(const std::string& part, long offset, const std::string& peer,
                        const std::string& ours) {
    EXPECT_EQ(compare().status, 1);
    const json found = record();
    EXPECT_EQ(found["causes"], json::array({"difference in " + part}));
    ASSERT_EQ(found["differences"].size(), 1U);
    const json& difference = found["differences"][0];
    EXPECT_EQ(difference["part"], part);
    EXPECT_EQ(difference["offset"], offset);
    EXPECT_EQ(difference["peer"], peer);
    EXPECT_EQ(difference["ours"], ours);
  }

  // Expects one cause and answers its detail.
  std::string expectFailure(const std::string& cause,
                            const std::vector<std::string>& arguments = {}) {
    EXPECT_EQ(compare(arguments).status, 1);
    const json found = record();
    EXPECT_EQ(found["causes"], json::array({cause}));
    return found["detail"];
  }

  // Whether the process that a routine has left behind is gone, or goes within
  // some seconds: a process that is ended takes its time.
  bool hangingProcessIsGone() const {
    std::string number = read("hanging_process");
    number.pop_back();
    for (int i = 0; i < 500; ++i) {
      const std::string state = readFile("/proc/" + number + "/stat");
      if (state.empty() || state.find(") Z ") != std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  std::string description_;
};

TEST_F(PpdEquivalenceTest, EqualDescription_IsEqual) {
  const RunResult result = compare();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "corpus: 1 of 1 PPDs, 0 with findings, 0:00\n");
  const json found = record();
  EXPECT_EQ(found["ppd"], "small.ppd");
  EXPECT_EQ(found["causes"], json::array());
  EXPECT_EQ(found["options"], 4);
  EXPECT_EQ(found["choices"], 8);
  EXPECT_EQ(found["jcl_options"], 1);
  // The defaults, two page sizes, and the random ones.
  EXPECT_EQ(found["vectors"], 43);
  EXPECT_EQ(found["check_errors"], 0);
  // The defaults alone have 76 bytes of JCL and its end, 94 of Duplex, 92 of
  // PageSize and 63 of Staple.
  EXPECT_GT(found["bytes"], 43 * 250);
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
  const std::string mark = "Name=\"Duplex\"";
  const std::size_t duplex = description_.find("    <Feature FeatureType=\"MultiSelect\" " + mark);
  const std::size_t size = description_.find("    <Feature", duplex + 1);
  const std::size_t end = description_.find("  </FeatureStaticGroup>", size);
  ASSERT_LT(end, description_.size());
  description_ = description_.substr(0, duplex) + description_.substr(size, end - size) +
                 description_.substr(duplex, size - duplex) + description_.substr(end);
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
  // It stands in front of all groups, so that no section is where it belongs.
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

TEST_F(PpdEquivalenceTest, DescriptionThatTheLibraryRefuses_IsFound) {
  plant("Name=\"JCLBegin\"", "NoName=\"JCLBegin\"");
  EXPECT_EQ(compare().status, 1);
  EXPECT_THAT(record()["causes"], ElementsAre("end (status 1) in load"));
}

TEST_F(PpdEquivalenceTest, FileThatIsNoPpd_IsRefusedByLibcups) {
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

TEST_F(PpdEquivalenceTest, EndWithoutAnAnswer_IsFound) {
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

TEST_F(PpdEquivalenceTest, FailureOfOne_DoesNotTouchTheOthers) {
  write("other.ppd", "no PPD\n");
  EXPECT_EQ(compare({"other.ppd"}).status, 1);
  const json report = json::parse(read("report.json"));
  EXPECT_EQ(report["figures"]["files"], 2);
  EXPECT_EQ(report["figures"]["equal"], 1);
  ASSERT_EQ(report["failures"].size(), 1U);
  EXPECT_EQ(report["failures"][0]["ppd"], "other.ppd");
}

TEST_F(PpdEquivalenceTest, ListedException_IsNoFailure) {
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

#include "equivalence/equivalence_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <thread>

using nlohmann::json;

namespace {

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

PpdEquivalenceTest::PpdEquivalenceTest()
    : description_(readFile(EQUIVALENCE_TEST_FOLDER "/small.xml")) {
  write("small.ppd", readFile(EQUIVALENCE_TEST_FOLDER "/small.ppd"));
}

void PpdEquivalenceTest::plant(const std::string& old, const std::string& text) {
  const std::size_t place = description_.find(old);
  ASSERT_NE(place, std::string::npos) << old;
  description_.replace(place, old.size(), text);
}

void PpdEquivalenceTest::swapDuplexAndPageSize() {
  const std::string mark = "Name=\"Duplex\"";
  const std::size_t duplex = description_.find("    <Feature FeatureType=\"MultiSelect\" " + mark);
  const std::size_t size = description_.find("    <Feature", duplex + 1);
  const std::size_t end = description_.find("  </FeatureStaticGroup>", size);
  ASSERT_LT(end, description_.size());
  description_ = description_.substr(0, duplex) + description_.substr(size, end - size) +
                 description_.substr(duplex, size - duplex) + description_.substr(end);
}

void PpdEquivalenceTest::plantRoutine(const std::string& routine) {
  plant("</FeatureDescription>",
        R"(<Feature FeatureType="UIOnly" Name="Routine" AddPSCallbackRoutine=")" + routine +
            R"("/></FeatureDescription>)");
}

RunResult PpdEquivalenceTest::compare(std::vector<std::string> arguments) {
  write("small.xml", description_);
  arguments.insert(arguments.begin(),
                   {"--description", "small.xml", "--callbacks", EQUIVALENCE_ROUTINES, "--library",
                    DRIVER_FEATURE_LIBRARY, "--vectors", "40"});
  arguments.push_back("small.ppd");
  return runIn(folder(), PPD_EQUIVALENCE, arguments);
}

void PpdEquivalenceTest::compareAndInterrupt() {
  write("small.xml", description_);
  const RunResult result = runIn(
      folder(), "/bin/sh",
      {"-c", "'" PPD_EQUIVALENCE "' --description small.xml --callbacks '" EQUIVALENCE_ROUTINES
             "' --library '" DRIVER_FEATURE_LIBRARY "' small.ppd >/dev/null 2>&1 & "
             "while [ ! -s hanging_process ]; do sleep 0.02; done; kill $!; wait $!"});
  EXPECT_EQ(result.status, 128 + SIGTERM);
}

json PpdEquivalenceTest::record() const {
  return json::parse(read("records.jsonl"));
}

void PpdEquivalenceTest::expectDifference(const std::string& part, long offset,
                                          const std::string& peer, const std::string& ours) {
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

std::string PpdEquivalenceTest::expectFailure(const std::string& cause,
                                              const std::vector<std::string>& arguments) {
  EXPECT_EQ(compare(arguments).status, 1);
  const json found = record();
  EXPECT_EQ(found["causes"], json::array({cause}));
  return found["detail"];
}

bool PpdEquivalenceTest::hangingProcessIsGone() const {
  std::string number = read("hanging_process");
  number.pop_back();
  for (int i = 0; i < 500; ++i) {
    const std::string state = readFile("/proc/" + number + "/stat");
    if (state.empty() || state.find(") Z ") != std::string::npos) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

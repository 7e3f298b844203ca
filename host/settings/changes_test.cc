#include "host/settings/changes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kLoadLine =
    "misuse: DriverFeature::setFeatureProperty(string):  Failed to load custom "
    "feature callback:  noSuchRoutine";

// A session whose load logs a line.
class ChangesTest : public testing::Test {
 protected:
  ChangesTest() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return;
    const std::string file = folder + "/office.xml";
    std::ofstream(file) << "<FeatureDescription><Feature FeatureType='IntEntry' Name='Copies' "
                           "AddCallbackRoutine='noSuchRoutine'/></FeatureDescription>";
    SessionRequest request;
    request.description = file;
    request.library = DRIVER_FEATURE_LIBRARY;
    request.report = [this](const std::string& line) { reports_.push_back(line); };
    auto session = Session::open(request);
    std::filesystem::remove_all(folder);
    if (session) session_ = std::move(*session);
  }

  std::vector<std::string> reports_;
  std::unique_ptr<Session> session_;
};

TEST_F(ChangesTest, MakeChanges_AllAccepted_ReleasesTheLogLinesAtOnce) {
  ASSERT_TRUE(session_);
  EXPECT_THAT(reports_, IsEmpty());
  EXPECT_EQ(problemText(makeChanges(*session_, {{"Copies=2"}, {}})), "");
  EXPECT_THAT(reports_, ElementsAre(kLoadLine));
}

TEST_F(ChangesTest, MakeChanges_SomeRefused_AreAllReportedAndTheLogIsDropped) {
  ASSERT_TRUE(session_);
  const auto made = makeChanges(*session_, {{"Copies=2", "Copies=x", "Copies=y"}, {}});
  EXPECT_EQ(problemText(made),
            "-o Copies=x: \"x\" is not a whole number; give a whole number\n"
            "-o Copies=y: \"y\" is not a whole number; give a whole number");
  session_.reset();
  EXPECT_THAT(reports_, IsEmpty());
}

}  // namespace

}  // namespace driver_feature::host

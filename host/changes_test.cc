#include "host/changes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace driver_feature {

namespace {

constexpr const char* kLoadLine =
    "driver-feature: misuse: DriverFeature::setFeatureProperty(string):  Failed to load custom "
    "feature callback:  noSuchRoutine\n";

// A session whose load has something to say.
class ChangesTest : public testing::Test {
 protected:
  ChangesTest() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return;
    const std::string file = folder + "/office.xml";
    std::ofstream(file) << "<FeatureDescription><Feature FeatureType='IntEntry' Name='Copies' "
                           "AddCallbackRoutine='noSuchRoutine'/></FeatureDescription>";
    int status = 0;
    testing::internal::CaptureStderr();
    session_ = Session::open({file, DRIVER_FEATURE_LIBRARY, {}, LogDetail::kUsual}, status);
    linesOfOpen_ = testing::internal::GetCapturedStderr();
    std::filesystem::remove_all(folder);
  }

  std::unique_ptr<Session> session_;
  std::string linesOfOpen_;
};

TEST_F(ChangesTest, MakeChanges_AllAccepted_ReleasesTheLogLinesAtOnce) {
  ASSERT_TRUE(session_);
  EXPECT_EQ(linesOfOpen_, "");
  testing::internal::CaptureStderr();
  EXPECT_TRUE(makeChanges(*session_, {{"Copies=2"}, {}}));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kLoadLine);
}

TEST_F(ChangesTest, MakeChanges_OneRefused_TellsTheRefusalOnly) {
  ASSERT_TRUE(session_);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(makeChanges(*session_, {{"Copies=2", "Copies=x", "Copies=y"}, {}}));
  session_.reset();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "driver-feature: -o Copies=x: \"x\" is not a whole number; give a whole number\n");
}

}  // namespace

}  // namespace driver_feature

#include "host/session/session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/session/host_routines.h"
#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

TEST(SessionTest, Open_NoBaseFeatureInfo_RegistersTheProgramsUpdateCallback) {
  std::string folder = (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::string file = folder + "/office.xml";
  std::ofstream(file) << "<FeatureDescription><Feature FeatureType='IntEntry' Name='Copies' "
                         "Sensitivity='true'/></FeatureDescription>";
  const auto plugin = Plugin::load(DRIVER_FEATURE_LIBRARY);
  ASSERT_EQ(problemText(plugin), "");
  plugin->setUpdateCallback(nullptr);
  const long before = updateCount();

  SessionRequest request;
  request.description = file;
  request.library = DRIVER_FEATURE_LIBRARY;
  const auto session = Session::open(request);
  std::filesystem::remove_all(folder);

  ASSERT_EQ(problemText(session), "");
  EXPECT_EQ(updateCount(), before + 1);
  EXPECT_TRUE((*session)->model().features.contains("Copies"));
}

}  // namespace

}  // namespace driver_feature::host

#include "host/session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/host_routines.h"

namespace driver_feature {

namespace {

TEST(SessionTest, Open_NoBaseFeatureInfo_RegistersTheProgramsUpdateCallback) {
  std::string folder = (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::string file = folder + "/office.xml";
  std::ofstream(file) << "<FeatureDescription><Feature FeatureType='IntEntry' Name='Copies' "
                         "Sensitivity='true'/></FeatureDescription>";
  std::string problem;
  const auto plugin = Plugin::load(DRIVER_FEATURE_LIBRARY, problem);
  ASSERT_TRUE(plugin) << problem;
  plugin->setUpdateCallback(nullptr);
  const long before = updateCount();

  int status = 0;
  const auto session = Session::open({file, DRIVER_FEATURE_LIBRARY, {}, LogDetail::kUsual}, status);
  std::filesystem::remove_all(folder);

  ASSERT_TRUE(session);
  EXPECT_EQ(updateCount(), before + 1);
  EXPECT_TRUE(session->model().features.contains("Copies"));
}

}  // namespace

}  // namespace driver_feature

#include "host/plugin.h"

#include <gtest/gtest.h>

namespace driver_feature {

namespace {

TEST(PluginTest, Load_FeatureLibrary_ReadsItsRecord) {
  std::string problem;
  const auto plugin = Plugin::load(DRIVER_FEATURE_LIBRARY, problem);
  ASSERT_TRUE(plugin) << problem;
  EXPECT_STREQ(plugin->version(), "v1.0");
  EXPECT_STREQ(plugin->displayName(), "Driver Feature Library");
  EXPECT_EQ(plugin->path(), DRIVER_FEATURE_LIBRARY);
  EXPECT_NE(plugin->find("JobTicketVORNTagHandler"), nullptr);
  EXPECT_EQ(plugin->find("NoSuchRoutine"), nullptr);
}

TEST(PluginTest, Load_NoSuchFile_SaysSo) {
  std::string problem;
  EXPECT_FALSE(Plugin::load("/no/such/library.so", problem));
  EXPECT_EQ(problem,
            "the feature library cannot be loaded: /no/such/library.so: cannot open shared object "
            "file: No such file or directory; name it with --library PATH");
}

TEST(PluginTest, Load_NameWithoutFolder_IsTakenFromTheCurrentFolder) {
  std::string problem;
  EXPECT_FALSE(Plugin::load("libc.so.6", problem));
  EXPECT_EQ(problem,
            "the feature library cannot be loaded: ./libc.so.6: cannot open shared object file: No "
            "such file or directory; name it with --library PATH");
}

TEST(PluginTest, Load_LibraryWithoutRecord_NamesTheMissingSymbol) {
  std::string problem;
  EXPECT_FALSE(Plugin::load(NO_PLUGIN_LIBRARY, problem));
  EXPECT_EQ(problem, std::string(NO_PLUGIN_LIBRARY) +
                         ": is not a feature library, because it does not export "
                         "_KirvoSOVersion; name another one with --library PATH");
}

TEST(PluginTest, Load_OtherVersion_IsRefused) {
  std::string problem;
  EXPECT_FALSE(Plugin::load(OTHER_PLUGIN_LIBRARY, problem));
  EXPECT_EQ(problem, std::string(OTHER_PLUGIN_LIBRARY) +
                         ": speaks version \"v2.0\" of the plug-in interface, not \"v1.0\"; name "
                         "another library with --library PATH");
}

TEST(LoadRoutinesTest, LoadRoutines_NoSuchFile_SaysSo) {
  std::string problem;
  EXPECT_FALSE(loadRoutines("routines.so", problem));
  EXPECT_EQ(problem,
            "the library of routines cannot be loaded: ./routines.so: cannot open shared object "
            "file: No such file or directory; check the path given with --callbacks");
}

}  // namespace

}  // namespace driver_feature

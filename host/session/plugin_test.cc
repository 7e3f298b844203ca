#include "host/session/plugin.h"

#include <gtest/gtest.h>

#include "support/problem_text.h"

namespace driver_feature::host {

namespace {

TEST(PluginTest, Load_FeatureLibrary_ReadsItsRecord) {
  const auto plugin = Plugin::load(DRIVER_FEATURE_LIBRARY);
  ASSERT_EQ(problemText(plugin), "");
  EXPECT_STREQ(plugin->version(), "v1.0");
  EXPECT_STREQ(plugin->displayName(), "Driver Feature Library");
  EXPECT_EQ(plugin->path(), DRIVER_FEATURE_LIBRARY);
  EXPECT_NE(plugin->find("JobTicketVORNTagHandler"), nullptr);
  EXPECT_EQ(plugin->find("NoSuchRoutine"), nullptr);
}

TEST(PluginTest, Load_NoSuchFile_SaysSo) {
  EXPECT_EQ(problemText(Plugin::load("/no/such/library.so")),
            "the feature library cannot be loaded: /no/such/library.so: cannot open shared object "
            "file: No such file or directory; name it with --library PATH");
}

TEST(PluginTest, Load_NameWithoutFolder_IsTakenFromTheCurrentFolder) {
  EXPECT_EQ(problemText(Plugin::load("libc.so.6")),
            "the feature library cannot be loaded: ./libc.so.6: cannot open shared object file: No "
            "such file or directory; name it with --library PATH");
}

TEST(PluginTest, Load_LibraryWithoutRecord_NamesTheMissingSymbol) {
  EXPECT_EQ(problemText(Plugin::load(NO_PLUGIN_LIBRARY)),
            std::string(NO_PLUGIN_LIBRARY) +
                ": is not a feature library, because it does not export "
                "_KirvoSOVersion; name another one with --library PATH");
}

// In a process of its own: checked builds do not let a second library define the record
// of the one that was loaded.
TEST(PluginVersionTest, Load_OtherVersion_IsRefused) {
  EXPECT_EQ(problemText(Plugin::load(OTHER_PLUGIN_LIBRARY)),
            std::string(OTHER_PLUGIN_LIBRARY) +
                ": has version \"v2.0\" of the plug-in interface, not \"v1.0\"; name "
                "another library with --library PATH");
}

TEST(LoadRoutinesTest, LoadRoutines_NoSuchFile_SaysSo) {
  EXPECT_EQ(problemText(loadRoutines("routines.so")),
            "the library of routines cannot be loaded: ./routines.so: cannot open shared object "
            "file: No such file or directory; check the path given with --callbacks");
}

}  // namespace

}  // namespace driver_feature::host

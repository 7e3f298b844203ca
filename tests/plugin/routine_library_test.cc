// Libraries of routines that call the plug-in which is already loaded.

#include <dlfcn.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "plugin/loaded_library.h"

namespace driver_feature::testing {
namespace {

using Library = std::unique_ptr<void, int (*)(void*)>;

Library loadRoutines(const char* path) {
  return {dlopen(path, RTLD_NOW | RTLD_GLOBAL), &dlclose};
}

void* setSeenBy(const Library& routines) {
  void* routine = dlsym(routines.get(), "SetThatTheRoutineSees");
  return routine != nullptr ? reinterpret_cast<void* (*)()>(routine)() : nullptr;
}

using RoutineLibraryTest = LoadedLibraryTest;

TEST_F(RoutineLibraryTest, Linked_PluginLoadedLocally_SeesTheHostsSet) {
  const Library routines = loadRoutines(LINKED_ROUTINES);
  ASSERT_TRUE(routines) << dlerror();
  EXPECT_EQ(setSeenBy(routines), static_cast<void*>(&library_.set()));
}

TEST_F(RoutineLibraryTest, Unlinked_PluginLoadedLocally_DoesNotLoad) {
  ASSERT_FALSE(loadRoutines(UNLINKED_ROUTINES));
  EXPECT_EQ(dlerror(), std::string(UNLINKED_ROUTINES) + ": undefined symbol: GetMasterFeatureList");
}

TEST_F(RoutineLibraryTest, Unlinked_PluginLoadedGlobally_SeesTheHostsSet) {
  const Library again(dlopen(DRIVER_FEATURE_LIBRARY, RTLD_NOW | RTLD_GLOBAL), &dlclose);
  ASSERT_TRUE(again) << dlerror();
  const Library routines = loadRoutines(UNLINKED_ROUTINES);
  ASSERT_TRUE(routines) << dlerror();
  EXPECT_EQ(setSeenBy(routines), static_cast<void*>(&library_.set()));
}

}  // namespace
}  // namespace driver_feature::testing

#include "Symbols.h"

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <string>

#include "Text.h"

// Routines of this program, which is the host process here. The test program
// exports its symbols.
extern "C" {
int PlatformTestRoutine();
int PlatformTestRoutine() {
  return 42;
}
}

namespace {

TEST(FetchSymbolTest, Fetch_RoutineOfTheProcess_ReturnsItsAddress) {
  void* routine = FetchSymbol("PlatformTestRoutine");
  ASSERT_EQ(routine, reinterpret_cast<void*>(&PlatformTestRoutine));
  EXPECT_EQ(reinterpret_cast<int (*)()>(routine)(), 42);
}

TEST(FetchSymbolTest, Fetch_RoutineOfALibrary_ReturnsItsAddress) {
  EXPECT_EQ(FetchSymbol("itoa"), reinterpret_cast<void*>(&itoa));
}

TEST(FetchSymbolTest, Fetch_UnknownName_ReturnsNull) {
  EXPECT_EQ(FetchSymbol("PlatformTestRoutin"), nullptr);
  EXPECT_EQ(FetchSymbol("platformtestroutine"), nullptr);
}

TEST(FetchSymbolTest, Fetch_Handler_MakesTheResultOfWhatIsFoundUntilItIsTakenBack) {
  static std::string asked;
  static void* found = nullptr;
  static int replacement = 0;
  asked.clear();
  SetSymbolHandler([](const char* name, void* address) -> void* {
    asked += std::string(name) + ";";
    found = address;
    return &replacement;
  });
  EXPECT_EQ(FetchSymbol("PlatformTestRoutine"), &replacement);
  EXPECT_EQ(found, reinterpret_cast<void*>(&PlatformTestRoutine));
  EXPECT_EQ(FetchSymbol("PlatformTestRoutin"), nullptr);
  EXPECT_EQ(FetchSymbol(nullptr), nullptr);
  EXPECT_EQ(asked, "PlatformTestRoutine;");
  SetSymbolHandler(nullptr);
  EXPECT_EQ(FetchSymbol("PlatformTestRoutine"), reinterpret_cast<void*>(&PlatformTestRoutine));
}

TEST(FetchSymbolTest, Fetch_NoName_ReturnsNull) {
  EXPECT_EQ(FetchSymbol(nullptr), nullptr);
  EXPECT_EQ(FetchSymbol(""), nullptr);
}

TEST(FetchSymbolTest, Fetch_LibraryLoadedGlobally_IsFoundAndOneLoadedLocallyIsNot) {
  ASSERT_EQ(FetchSymbol("PlatformTestLibraryRoutine"), nullptr);
  void* library = dlopen(PLATFORM_TEST_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  EXPECT_EQ(FetchSymbol("PlatformTestLibraryRoutine"), nullptr);
  ASSERT_NE(dlopen(PLATFORM_TEST_LIBRARY, RTLD_NOW | RTLD_GLOBAL), nullptr) << dlerror();
  EXPECT_EQ(FetchSymbol("PlatformTestLibraryRoutine"),
            dlsym(library, "PlatformTestLibraryRoutine"));
  EXPECT_NE(FetchSymbol("PlatformTestLibraryRoutine"), nullptr);
  dlclose(library);
  dlclose(library);
}

}  // namespace

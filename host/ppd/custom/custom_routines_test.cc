#include "host/ppd/custom/custom_routines.h"

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace driver_feature::ppd {

namespace {

TEST(CustomRoutinesTest, Name_HasTwoDigits) {
  EXPECT_EQ(customRoutineName(0), "EmitPpdCustom00");
  EXPECT_EQ(customRoutineName(9), "EmitPpdCustom09");
  EXPECT_EQ(customRoutineName(99), "EmitPpdCustom99");
}

// For hosts other than the program.
TEST(CustomRoutinesTest, Library_HasEveryRoutine) {
  const std::unique_ptr<void, int (*)(void*)> library(::dlopen(PPD_ROUTINES, RTLD_NOW | RTLD_LOCAL),
                                                      &::dlclose);
  ASSERT_NE(library, nullptr) << ::dlerror();
  for (long number = 0; number < kCustomRoutines; ++number) {
    EXPECT_NE(::dlsym(library.get(), customRoutineName(number).c_str()), nullptr) << number;
  }
  EXPECT_EQ(::dlsym(library.get(), customRoutineName(kCustomRoutines).c_str()), nullptr);
}

}  // namespace

}  // namespace driver_feature::ppd

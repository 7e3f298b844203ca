#include "programs/filter/libcups_options.h"

#include <gtest/gtest.h>

namespace driver_feature::filter {
namespace {

TEST(LibcupsOptions, OptionsOfUsers_AreKnownByTheirExactNames) {
  for (const char* name : {"media", "sides", "finishings", "print-color-mode", "resolution"}) {
    EXPECT_TRUE(isKnownToLibcups(name)) << name;
    EXPECT_TRUE(concernsLibcups(name)) << name;
  }
  EXPECT_FALSE(isKnownToLibcups("Media"));
  EXPECT_TRUE(concernsLibcups("Media"));
}

TEST(LibcupsOptions, OptionsOfPrograms_ConcernLibcupsOnly) {
  for (const char* name : {"emit-jcl", "Emit-JCL", "cupsPrintQuality", "APPrinterPreset"}) {
    EXPECT_FALSE(isKnownToLibcups(name)) << name;
    EXPECT_TRUE(concernsLibcups(name)) << name;
  }
}

TEST(LibcupsOptions, OtherOptions_AreNot) {
  for (const char* name : {"", "PageSize", "medi", "media-", "number-up", "copies"}) {
    EXPECT_FALSE(isKnownToLibcups(name)) << name;
    EXPECT_FALSE(concernsLibcups(name)) << name;
  }
}

}  // namespace
}  // namespace driver_feature::filter

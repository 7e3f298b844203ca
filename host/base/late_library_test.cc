#include "host/base/late_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace driver_feature::host {
namespace {

std::string messageOf(const LateLibrary& library) {
  try {
    library.function<void()>("noSuchFunction");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

TEST(LateLibraryTest, Function_IsThere_CanBeCalled) {
  const LateLibrary library("libm.so.6", "libc6");
  EXPECT_EQ(library.function<int(double)>("ilogb")(8.0), 3);
}

TEST(LateLibraryTest, Function_IsNotThere_ThrowsWithTheRemedy) {
  EXPECT_THAT(messageOf(LateLibrary("libm.so.6", "libc6")),
              ::testing::MatchesRegex("libm.so.6 cannot be loaded: .*undefined symbol: "
                                      "noSuchFunction; install the package libc6"));
}

TEST(LateLibraryTest, Function_LibraryIsNotThere_ThrowsWithTheRemedy) {
  EXPECT_EQ(messageOf(LateLibrary("libNoSuchLibrary.so.1", "libnone1")),
            "libNoSuchLibrary.so.1 cannot be loaded: libNoSuchLibrary.so.1: cannot open shared "
            "object file: No such file or directory; install the package libnone1");
}

}  // namespace
}  // namespace driver_feature::host

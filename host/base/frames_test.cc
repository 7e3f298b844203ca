#include "host/base/frames.h"

#include <gtest/gtest.h>

namespace driver_feature::host {
namespace {

TEST(Frames, TwoTexts_ComeBack) {
  std::string arrived = frame("hello") + frame("") + "3:a";
  bool isMalformed = false;
  EXPECT_EQ(takeFrame(arrived, isMalformed), "hello");
  EXPECT_EQ(takeFrame(arrived, isMalformed), "");
  EXPECT_EQ(takeFrame(arrived, isMalformed), std::nullopt);
  EXPECT_FALSE(isMalformed);
  EXPECT_EQ(arrived, "3:a");
}

TEST(Frames, NoLength_IsMalformed) {
  for (const std::string text : {"x:", ":", "12345678901", "-1:a"}) {
    std::string arrived = text;
    bool isMalformed = false;
    EXPECT_EQ(takeFrame(arrived, isMalformed), std::nullopt);
    EXPECT_TRUE(isMalformed) << text;
  }
}

}  // namespace
}  // namespace driver_feature::host

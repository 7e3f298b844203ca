#include "host/base/frames.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

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

TEST(Frames, NextFrame_TextsThenTheEnd_ComeOneByOne) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const std::string sent = frame("first") + frame("second") + "9:cut";
  ASSERT_EQ(::write(ends[1], sent.data(), sent.size()), static_cast<ssize_t>(sent.size()));
  ::close(ends[1]);
  std::string arrived;
  EXPECT_EQ(nextFrame(ends[0], arrived), "first");
  EXPECT_EQ(nextFrame(ends[0], arrived), "second");
  EXPECT_EQ(nextFrame(ends[0], arrived), std::nullopt);
  std::string malformed = "x:";
  EXPECT_EQ(nextFrame(ends[0], malformed), std::nullopt);
  ::close(ends[0]);
}

}  // namespace
}  // namespace driver_feature::host

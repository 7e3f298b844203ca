#include "host/ppd/points.h"

#include <gtest/gtest.h>

#include "host/base/decimal.h"

namespace driver_feature::ppd {

namespace {

std::string textOfLength(float points) {
  return millimetresText(points, [points](double read) { return pointsOf(read) == points; });
}

TEST(PointsTest, Millimetres_AreAsShortAsPossible) {
  EXPECT_EQ(textOfLength(612), "215.9");
  EXPECT_EQ(textOfLength(72), "25.4");
  EXPECT_EQ(textOfLength(0), "0");
  EXPECT_EQ(textOfLength(595), "209.90278");
  EXPECT_EQ(textOfLength(-7.5F), "-2.6458333");
}

TEST(PointsTest, Millimetres_OfAnyLength_GiveItBack) {
  float points = 0.0001F;
  for (; points < 1e6F; points = points * 1.37F + 0.1F) {
    EXPECT_EQ(pointsOf(host::decimal(textOfLength(points))), points);
  }
}

TEST(PointsTest, FarEdge_OfAMargin_IsExact) {
  const float length = 841.92F;
  const float edge = 823.9199F;
  const std::string margin =
      millimetresText(static_cast<double>(length) - edge,
                      [length, edge](double read) { return farEdge(length, read) == edge; });
  EXPECT_EQ(margin, "6.35002");
  EXPECT_EQ(farEdge(length, 6.35002), edge);
}

}  // namespace

}  // namespace driver_feature::ppd

#include "host/page_server/query.h"

#include <gtest/gtest.h>

#include "host/page_server/random_name.h"

namespace driver_feature::page_server {
namespace {

TEST(QueryValue, Names_HaveTheirDecodedValues) {
  const std::string query = "a=1&file=x%2Fy+z&b&aa=2&broken=%4&worse=%zz";
  EXPECT_EQ(queryValue(query, "a"), "1");
  EXPECT_EQ(queryValue(query, "file"), "x/y z");
  EXPECT_EQ(queryValue(query, "b"), "");
  EXPECT_EQ(queryValue(query, "c"), "");
  EXPECT_EQ(queryValue(query, "broken"), "%4");
  EXPECT_EQ(queryValue(query, "worse"), "%zz");
}

TEST(RandomName, TwoNames_Differ) {
  const auto one = randomName();
  const auto two = randomName();
  ASSERT_TRUE(one && two);
  EXPECT_EQ(one->size(), 32U);
  EXPECT_NE(*one, *two);
  EXPECT_EQ(one->find_first_not_of("0123456789abcdefghijklmnopqrstuvwxyz"), std::string::npos);
}

}  // namespace
}  // namespace driver_feature::page_server

#include "host/settings/json_places.h"

#include <gtest/gtest.h>

namespace driver_feature::host {
namespace {

using Members = std::map<std::string, int>;

TEST(JsonPlacesTest, Places_EachElement_HasItsLineAndThoseOfItsNames) {
  const auto places = jsonPlaces(
      "\n[ {\"a\": \"x,]{\\\"\", \n \"b\\n\" : [1, {\"c\": 2}]},\n 7, \"t\"\n,\n[],null, {}\n]");
  ASSERT_EQ(places.size(), 6U);
  EXPECT_EQ(places[0].line, 2);
  EXPECT_EQ(places[0].members, (Members{{"a", 2}, {"b\n", 3}}));
  EXPECT_EQ(places[1].line, 4);
  EXPECT_EQ(places[2].line, 4);
  EXPECT_EQ(places[3].line, 6);
  EXPECT_EQ(places[4].line, 6);
  EXPECT_EQ(places[5].line, 6);
  EXPECT_EQ(places[5].members, Members{});
}

TEST(JsonPlacesTest, Places_EmptyArray_AreNone) {
  EXPECT_TRUE(jsonPlaces("[ \n ]").empty());
}

}  // namespace
}  // namespace driver_feature::host

#include "host/description/value_source.h"

#include <gtest/gtest.h>

namespace driver_feature::host {
namespace {

Attribute attribute(const std::string& value, const std::string& source) {
  return {"A", value, {1, 2}, {3, 5}, source};
}

TEST(ValueSource, PlaceIn_PlainText_CountsCharacters) {
  EXPECT_EQ(placeIn(attribute("abc", "abc"), 0), (Position{3, 5}));
  EXPECT_EQ(placeIn(attribute("abc", "abc"), 2), (Position{3, 7}));
  EXPECT_EQ(placeIn(attribute("abc", "abc"), 3), (Position{3, 8}));  // Past the end.
  EXPECT_EQ(placeIn(attribute("\xC3\xA4z", "\xC3\xA4z"), 2), (Position{3, 6}));
}

TEST(ValueSource, PlaceIn_References_CountAsTheyAreWritten) {
  const Attribute item = attribute("<\n\xC3\xA4%", "&lt;&#10;&#xE4;%");
  EXPECT_EQ(placeIn(item, 0), (Position{3, 5}));
  EXPECT_EQ(placeIn(item, 1), (Position{3, 9}));
  EXPECT_EQ(placeIn(item, 2), (Position{3, 14}));
  EXPECT_EQ(placeIn(item, 3), (Position{3, 14}));
  EXPECT_EQ(placeIn(item, 4), (Position{3, 20}));
}

TEST(ValueSource, PlaceIn_LineEnds_BeginALine) {
  EXPECT_EQ(placeIn(attribute("a  b%", "a\n\r\nb%"), 4), (Position{5, 2}));
}

TEST(ValueSource, PlaceIn_ByteEscapes_AreOneByteWhereTheyAreResolved) {
  const std::string source = "&#xF71B;\xEF\x9F\xA4%";
  EXPECT_EQ(placeIn(attribute("\x1B\xE4%", source), 2), (Position{3, 14}));
  EXPECT_EQ(placeIn(attribute("\xEF\x9C\x9B\xEF\x9F\xA4%", source), 6), (Position{3, 14}));
}

TEST(ValueSource, PlaceIn_SourceOfAnotherValue_IsThePlaceOfTheAttribute) {
  EXPECT_EQ(placeIn(attribute("abc", ""), 1), (Position{1, 2}));
}

}  // namespace
}  // namespace driver_feature::host

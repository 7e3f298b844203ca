#include "host/server/framing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::host {
namespace {

// What is handed on when the text arrives byte by byte: one entry for each time
// that something may go on.
std::vector<std::string> handedOn(Framing& framing, const std::string& text) {
  std::vector<std::string> parts;
  std::string waiting;
  for (const char byte : text) {
    waiting += byte;
    for (std::size_t count = framing.take(waiting); count > 0; count = framing.take(waiting)) {
      parts.push_back(waiting.substr(0, count));
      waiting.erase(0, count);
    }
  }
  return parts;
}

using Parts = std::vector<std::string>;

TEST(Framing, Head_ArrivesByteByByte_GoesOnWhole) {
  Framing framing(100);
  framing.expectHead();
  EXPECT_EQ(handedOn(framing, "GET / HTTP/1.1\r\nHost: a\r\n\r\nrest"),
            Parts{"GET / HTTP/1.1\r\nHost: a\r\n\r\n"});
  EXPECT_TRUE(framing.isDone());
}

TEST(Framing, Head_PlainLineEnds_GoesOnWhole) {
  Framing framing(100);
  framing.expectHead();
  EXPECT_EQ(handedOn(framing, "GET / HTTP/1.1\nHost: a\n\n"), Parts{"GET / HTTP/1.1\nHost: a\n\n"});
  EXPECT_TRUE(framing.isDone());
}

TEST(Framing, Head_ArrivesAtOnce_EndsAtItsBlankLine) {
  Framing framing(100);
  framing.expectHead();
  EXPECT_EQ(framing.take("A\r\n\r\nB\r\n\r\n"), 5U);
}

TEST(Framing, Head_LongerThanAllowed_IsMalformed) {
  Framing framing(10);
  framing.expectHead();
  EXPECT_EQ(framing.take("0123456789"), 0U);
  EXPECT_TRUE(framing.isMalformed());
}

TEST(Framing, Head_LineEndBeyondTheLimit_IsMalformed) {
  Framing framing(10);
  framing.expectHead();
  EXPECT_EQ(framing.take("A\n0123456789\n\n"), 0U);
  EXPECT_TRUE(framing.isMalformed());
}

TEST(Framing, Bytes_MoreHaveCome_EndsAfterThem) {
  Framing framing(100);
  framing.expectBytes(5);
  EXPECT_EQ(framing.take("abc"), 3U);
  EXPECT_FALSE(framing.isDone());
  EXPECT_EQ(framing.take("defg"), 2U);
  EXPECT_TRUE(framing.isDone());
}

TEST(Framing, Bytes_None_IsDone) {
  Framing framing(100);
  framing.expectBytes(0);
  EXPECT_TRUE(framing.isDone());
}

TEST(Framing, Chunks_ArriveByteByByte_NoLineGoesOnInParts) {
  Framing framing(100);
  framing.expectChunks();
  EXPECT_EQ(handedOn(framing, "3\r\nabc\r\n1;x=y\r\nd\r\n0\r\n\r\nrest"),
            (Parts{"3\r\na", "b", "c\r\n", "1;x=y\r\nd\r\n", "0\r\n\r\n"}));
  EXPECT_TRUE(framing.isDone());
}

TEST(Framing, Chunks_NoNumber_IsMalformed) {
  for (const std::string line :
       {"x\r\n", "\r\n", "-1\r\n", "3x\r\n", "80000000\r\n", "fffffffff\r\n"}) {
    Framing framing(100);
    framing.expectChunks();
    EXPECT_EQ(framing.take(line), 0U) << line;
    EXPECT_TRUE(framing.isMalformed()) << line;
  }
}

TEST(Framing, Chunks_LongLine_IsMalformed) {
  Framing framing(100);
  framing.expectChunks();
  EXPECT_EQ(framing.take("1;" + std::string(29, 'x')), 0U);
  EXPECT_TRUE(framing.isMalformed());
}

TEST(Framing, Chunks_NoLineEndAfterTheBytes_IsMalformed) {
  Framing framing(100);
  framing.expectChunks();
  EXPECT_EQ(framing.take("1\r\nabc"), 0U);
  EXPECT_TRUE(framing.isMalformed());
}

TEST(Framing, Chunks_FieldsAfterTheLast_AreMalformed) {
  Framing framing(100);
  framing.expectChunks();
  EXPECT_EQ(framing.take("0\r\nA: b\r\n\r\n"), 0U);
  EXPECT_TRUE(framing.isMalformed());
}

TEST(HasCodedBody, Field_AnyCodingButIdentity_IsOne) {
  EXPECT_TRUE(hasCodedBody("POST / HTTP/1.1\r\nContent-Encoding: gzip\r\n\r\n"));
  EXPECT_TRUE(hasCodedBody("POST / HTTP/1.1\ncontent-encoding:deflate\n\n"));
  EXPECT_FALSE(hasCodedBody("POST / HTTP/1.1\r\nContent-Encoding: Identity \r\n\r\n"));
  EXPECT_FALSE(hasCodedBody("POST / HTTP/1.1\r\nX-Content-Encoding: gzip\r\nHost: a\r\n\r\n"));
  EXPECT_FALSE(hasCodedBody("Content-Encoding"));
}

}  // namespace
}  // namespace driver_feature::host

#include "programs/driver_feature/lsp/framing.h"

#include <gtest/gtest.h>

namespace driver_feature::cli {

namespace {

// The messages of a stream that comes in parts, each on a line; the problem at the
// end, if there is one.
std::string readInParts(const std::string& bytes, std::size_t size) {
  MessageReader reader;
  std::string lines;
  for (std::size_t at = 0; at < bytes.size(); at += size) {
    reader.add(std::string_view(bytes).substr(at, size));
    while (true) {
      const auto message = reader.take();
      if (!message) return lines + "problem: " + message.error().text;
      if (!*message) break;
      lines += **message + "\n";
    }
  }
  return lines;
}

std::string readWhole(const std::string& bytes) {
  return readInParts(bytes, bytes.size());
}

TEST(Framing, Framed_Message_HasItsLengthInBytes) {
  EXPECT_EQ(framed("{\"\xC3\xBC\"}"), "Content-Length: 6\r\n\r\n{\"\xC3\xBC\"}");
}

TEST(Framing, Take_PartsOfAnySize_GivesTheSameMessages) {
  const std::string bytes = framed("{}") +
                            "content-type: text/plain\r\ncontent-LENGTH:3 \r\n\r\nabc" +
                            framed("") + framed(std::string(100, 'x'));
  const std::string expected = "{}\nabc\n\n" + std::string(100, 'x') + "\n";
  for (std::size_t size = 1; size <= bytes.size(); ++size) {
    EXPECT_EQ(readInParts(bytes, size), expected) << size;
  }
}

TEST(Framing, Take_MessageThatIsNotWhole_Waits) {
  EXPECT_EQ(readWhole("Content-Length: 3\r\n\r\nab"), "");
  EXPECT_EQ(readWhole("Content-Length: 3\r\n"), "");
}

TEST(Framing, Take_WrongHead_IsRefused) {
  EXPECT_EQ(readWhole("Content-Type: x\r\n\r\n{}"),
            "problem: the head of a message has no Content-Length");
  EXPECT_EQ(readWhole("GET / HTTP/1.1\r\n\r\n"),
            "problem: a line in the head of a message has no colon; is this a language client?");
  EXPECT_EQ(readWhole(std::string(8192, 'a')),
            "problem: the head of a message has no end; is this a language client?");
  EXPECT_EQ(readWhole(std::string(8191, 'a')), "");
}

TEST(Framing, Take_WrongLength_IsRefused) {
  const std::string problem =
      "problem: the length of a message is not a number from 0 to 268435456";
  for (const char* length :
       {"", "-1", "x", "3x", "0x3", "1e3", "268435457", "99999999999999999999999999"}) {
    EXPECT_EQ(readWhole("Content-Length: " + std::string(length) + "\r\n\r\n{}"), problem)
        << length;
  }
}

}  // namespace

}  // namespace driver_feature::cli

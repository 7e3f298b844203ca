#include "programs/printer/inflation.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <vector>

namespace driver_feature::printer {
namespace {

std::string compressed(const std::string& text, int bits) {
  z_stream z{};
  EXPECT_EQ(::deflateInit2(&z, Z_BEST_COMPRESSION, Z_DEFLATED, bits, 8, Z_DEFAULT_STRATEGY), Z_OK);
  std::string bytes(::deflateBound(&z, static_cast<uLong>(text.size())), '\0');
  std::string input = text;
  z.next_in = reinterpret_cast<Bytef*>(input.data());
  z.avail_in = static_cast<uInt>(input.size());
  z.next_out = reinterpret_cast<Bytef*>(bytes.data());
  z.avail_out = static_cast<uInt>(bytes.size());
  EXPECT_EQ(::deflate(&z, Z_FINISH), Z_STREAM_END);
  bytes.resize(z.total_out);
  ::deflateEnd(&z);
  return bytes;
}

constexpr int kGzipBits = 31;
constexpr int kBareBits = -15;

struct Made {
  std::string text;
  bool isRight = true;
  bool isWhole = false;
};

Made inflated(const std::string& bytes, const std::string& word, std::size_t piece) {
  Inflation inflation(word);
  Made made;
  for (std::size_t at = 0; at < bytes.size() && made.isRight; at += piece) {
    made.isRight = inflation.inflate(bytes.substr(at, piece), [&](std::string_view text) {
      EXPECT_LE(text.size(), 65536U);
      made.text += text;
      return true;
    });
  }
  made.isWhole = inflation.isWhole();
  return made;
}

TEST(Inflation, Document_ComesBackWhateverItsPieces) {
  const std::string text = "begin" + std::string(300000, 'x') + "end";
  for (const std::size_t piece : {1U, 7U, 1000000U}) {
    const Made gzip = inflated(compressed(text, kGzipBits), "gzip", piece);
    EXPECT_TRUE(gzip.text == text && gzip.isRight && gzip.isWhole) << piece;
    const Made bare = inflated(compressed(text, kBareBits), "deflate", piece);
    EXPECT_TRUE(bare.text == text && bare.isRight && bare.isWhole) << piece;
  }
}

TEST(Inflation, FilesInARow_AreOneDocument) {
  const Made made =
      inflated(compressed("one ", kGzipBits) + compressed("two", kGzipBits), "gzip", 5);
  EXPECT_EQ(made.text, "one two");
  EXPECT_TRUE(made.isWhole);
}

TEST(Inflation, DocumentWithoutItsEnd_IsNotWhole) {
  const std::string bytes = compressed("a document", kGzipBits);
  const Made made = inflated(bytes.substr(0, bytes.size() - 3), "gzip", 100);
  EXPECT_TRUE(made.isRight);
  EXPECT_FALSE(made.isWhole);
  EXPECT_FALSE(inflated("", "gzip", 1).isWhole);
}

TEST(Inflation, DamagedDocument_IsRefused) {
  std::string bytes = compressed(std::string(1000, 'x') + "yz", kGzipBits);
  bytes[bytes.size() - 6] = static_cast<char>(bytes[bytes.size() - 6] ^ 1);  // The checksum.
  EXPECT_FALSE(inflated(bytes, "gzip", 100).isRight);
  EXPECT_FALSE(inflated("%!PS-Adobe-3.0", "gzip", 100).isRight);
}

TEST(Inflation, TakerThatHasEnough_GetsNoMore) {
  Inflation inflation("gzip");
  int pieces = 0;
  EXPECT_TRUE(inflation.inflate(compressed(std::string(1000000, 'x'), kGzipBits),
                                [&pieces](std::string_view) { return ++pieces < 3; }));
  EXPECT_EQ(pieces, 3);
}

}  // namespace
}  // namespace driver_feature::printer

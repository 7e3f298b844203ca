#include "programs/filter/line_cutter.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace driver_feature::filter {
namespace {

using testing::ElementsAre;

// Writes down what it gets: "line[text|end]", "begin[size]", "bytes[...]".
class Recorder : public LineListener {
 public:
  void takeLine(const JobLine& line) override {
    const std::string end(line.end);
    if (line.isWhole) {
      seen.push_back("line[" + std::string(line.text) + "|" + end + "]");
    } else {
      seen.push_back("begin[" + std::to_string(line.text.size()) + end + "]");
    }
    if (cutter != nullptr && line.text.starts_with("pass ")) {
      cutter->passOn(std::stoull(std::string(line.text.substr(5))));
    }
  }
  void takeBytes(std::string_view bytes) override {
    if (!seen.empty() && seen.back().starts_with("bytes[")) {
      seen.back().insert(seen.back().size() - 1, bytes);
    } else {
      seen.push_back("bytes[" + std::string(bytes) + "]");
    }
  }

  std::vector<std::string> seen;
  LineCutter* cutter = nullptr;
};

// What is reported of the text when it comes in pieces of that many bytes.
std::vector<std::string> cut(const std::string& text, std::size_t piece) {
  Recorder recorder;
  LineCutter cutter(recorder);
  recorder.cutter = &cutter;
  for (std::size_t at = 0; at < text.size(); at += piece) cutter.take(text.substr(at, piece));
  cutter.finish();
  return recorder.seen;
}

TEST(LineCutter, AnyLineEnd_IsGivenWithItsLine) {
  for (std::size_t piece = 1; piece <= 12; ++piece) {
    EXPECT_THAT(cut("a\nb\r\nc", piece), ElementsAre("line[a|\n]", "line[b|\r\n]", "line[c|]"))
        << piece;
    EXPECT_THAT(cut("a\rb\r", piece), ElementsAre("line[a|\r]", "line[b|\r]")) << piece;
    EXPECT_THAT(cut("\n\r\n\n", piece), ElementsAre("line[|\n]", "line[|\r\n]", "line[|\n]"))
        << piece;
  }
}

TEST(LineCutter, NulBytes_BelongToTheLine) {
  const std::string text("a\0b\n", 4);
  EXPECT_THAT(cut(text, 1), ElementsAre(std::string("line[a\0b|\n]", 11)));
}

TEST(LineCutter, PassedBytes_AreNoLines) {
  for (std::size_t piece = 1; piece <= 16; ++piece) {
    EXPECT_THAT(cut("pass 4\r\n\n\r\nxrest\n", piece),
                ElementsAre("line[pass 4|\r\n]", "bytes[\n\r\nx]", "line[rest|\n]"))
        << piece;
    EXPECT_THAT(cut("pass 2\nab\n", piece),
                ElementsAre("line[pass 2|\n]", "bytes[ab]", "line[|\n]"))
        << piece;
  }
}

TEST(LineCutter, LineFeedAfterBareCr_IsDataWhereLinesEndWithCr) {
  for (std::size_t piece = 1; piece <= 16; ++piece) {
    EXPECT_THAT(cut("a\rpass 2\r\nbc\r", piece),
                ElementsAre("line[a|\r]", "line[pass 2|\r]", "bytes[\nb]", "line[c|\r]"))
        << piece;
  }
}

TEST(LineCutter, PassedBytesThatNeverCome_EndQuietly) {
  EXPECT_THAT(cut("pass 99999999999\nab", 3),
              ElementsAre("line[pass 99999999999|\n]", "bytes[ab]"));
}

TEST(LineCutter, LineOfTheGreatestLength_IsWhole) {
  const std::string text(kLongestLine, 'x');
  for (const std::size_t piece : {1U, 7U, 1023U, 1024U, 4096U}) {
    EXPECT_THAT(cut(text + "\r\nb\n", piece), ElementsAre("line[" + text + "|\r\n]", "line[b|\n]"))
        << piece;
  }
}

TEST(LineCutter, LongerLine_IsGivenAsBeginningAndBytes) {
  const std::string text(kLongestLine + 3, 'x');
  for (const std::size_t piece : {1U, 7U, 1023U, 1024U, 1025U, 4096U}) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
      EXPECT_THAT(cut(text + end + "b\n", piece),
                  ElementsAre("begin[1024]", "bytes[xxx" + end + "]", "line[b|\n]"))
          << piece << end.size();
    }
    EXPECT_THAT(cut(text, piece), ElementsAre("begin[1024]", "bytes[xxx]")) << piece;
  }
}

}  // namespace
}  // namespace driver_feature::filter

#include "programs/filter/eps_file.h"

#include <gmock/gmock.h>

#include <string>

#include "programs/filter/memory_sink.h"

namespace driver_feature::filter {
namespace {

std::string number(std::uint32_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xff);
  return bytes;
}

// The header of a file with PostScript and a TIFF picture.
std::string header(std::uint32_t place, std::uint32_t size) {
  return "\xC5\xD0\xD3\xC6" + number(place) + number(size) + number(0) + number(0) +
         number(place + size) + number(4) + "\xff\xff";
}

struct Outcome {
  std::string text;
  bool isCut = false;
};

Outcome run(const std::string& file, std::size_t piece) {
  MemorySink sink;
  EpsFile eps(sink);
  for (std::size_t at = 0; at < file.size(); at += piece) {
    eps.put(std::string_view(file).substr(at, piece));
  }
  eps.finish();
  return {sink.text, eps.isCut()};
}

void expect(const std::string& file, const std::string& text, bool isCut = false) {
  for (std::size_t piece = 1; piece <= file.size() + 1; ++piece) {
    const Outcome outcome = run(file, piece);
    EXPECT_EQ(outcome.text, text) << piece;
    EXPECT_EQ(outcome.isCut, isCut) << piece;
  }
}

const std::string kDocument = "%!PS-Adobe-3.0 EPSF-3.0\nshowpage\n";
const auto kSize = static_cast<std::uint32_t>(kDocument.size());

TEST(EpsFile, HeaderOfNumbers_LeavesThePostScript) {
  expect(header(30, kSize) + kDocument + "TIFF", kDocument);
  expect(header(34, kSize) + "TIFF" + kDocument, kDocument);
  expect(header(30, kSize) + kDocument, kDocument);
}

TEST(EpsFile, EndBeforeThePostScriptEnds_IsToldOf) {
  expect(header(30, kSize + 1) + kDocument, kDocument, true);
  expect(header(100, kSize) + kDocument, "", true);
}

TEST(EpsFile, AnythingElse_PassesAsItIs) {
  for (const std::string& file :
       {kDocument, std::string("\xC5\xD0\xD3"), std::string("\xC5\xD0\xD3\xC6"),
        std::string("\xC5\xD0\xD3\xC7 more than a header has"), header(29, kSize) + kDocument,
        header(30, 0) + kDocument, std::string("%")}) {
    expect(file, file);
  }
}

}  // namespace
}  // namespace driver_feature::filter

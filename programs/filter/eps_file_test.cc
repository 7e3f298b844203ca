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

struct EpsOutcome {
  std::string text;
  bool isCut = false;
};

EpsOutcome runEps(const std::string& file, std::size_t piece) {
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
    const EpsOutcome outcome = runEps(file, piece);
    EXPECT_EQ(outcome.text, text) << piece;
    EXPECT_EQ(outcome.isCut, isCut) << piece;
  }
}

const std::string kEpsDocument = "%!PS-Adobe-3.0 EPSF-3.0\nshowpage\n";
const auto kEpsSize = static_cast<std::uint32_t>(kEpsDocument.size());

TEST(EpsFile, HeaderOfNumbers_LeavesThePostScript) {
  expect(header(30, kEpsSize) + kEpsDocument + "TIFF", kEpsDocument);
  expect(header(34, kEpsSize) + "TIFF" + kEpsDocument, kEpsDocument);
  expect(header(30, kEpsSize) + kEpsDocument, kEpsDocument);
}

TEST(EpsFile, EndBeforeThePostScriptEnds_IsReported) {
  expect(header(30, kEpsSize + 1) + kEpsDocument, kEpsDocument, true);
  expect(header(100, kEpsSize) + kEpsDocument, "", true);
}

TEST(EpsFile, AnythingElse_PassesAsItIs) {
  for (const std::string& file :
       {kEpsDocument, std::string("\xC5\xD0\xD3"), std::string("\xC5\xD0\xD3\xC6"),
        std::string("\xC5\xD0\xD3\xC7 more than a header has"), header(29, kEpsSize) + kEpsDocument,
        header(30, 0) + kEpsDocument, std::string("%")}) {
    expect(file, file);
  }
}

}  // namespace
}  // namespace driver_feature::filter

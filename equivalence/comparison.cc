#include "equivalence/comparison.h"

#include <algorithm>

namespace driver_feature::equivalence {

namespace {

constexpr std::size_t kContextBefore = 24;
constexpr std::size_t kContextAfter = 40;
constexpr std::string_view kSectionEnd = "\n%EndDriverSection\n";

std::string printable(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (byte == '\n') {
      text += "\\n";
    } else if (byte == '\\') {
      text += "\\\\";
    } else if (code < 0x20 || code > 0x7E) {
      text += "\\x";
      text += kDigits[code >> 4];
      text += kDigits[code & 0xF];
    } else {
      text += byte;
    }
  }
  return text;
}

std::string around(std::string_view text, std::size_t offset) {
  const std::size_t begin = offset > kContextBefore ? offset - kContextBefore : 0;
  if (begin >= text.size()) return "";
  return printable(text.substr(begin, offset - begin + kContextAfter));
}

}  // namespace

void compareText(const std::string& part, std::string_view peer, std::string_view ours,
                 std::vector<Difference>& differences) {
  if (peer == ours) return;
  const auto place = std::mismatch(peer.begin(), peer.end(), ours.begin(), ours.end());
  const auto offset = static_cast<std::size_t>(place.first - peer.begin());
  differences.push_back({part, offset, std::string(peer), std::string(ours), around(peer, offset),
                         around(ours, offset)});
}

bool takeApart(std::string_view postScript, JobTexts& texts, std::string& rest) {
  for (std::size_t i = 0; i < kSectionNames.size(); ++i) {
    const std::string begin = std::string("%DriverSection ") + kSectionNames[i] + "\n";
    if (!postScript.starts_with(begin)) continue;
    const std::size_t end = postScript.find(kSectionEnd, begin.size());
    if (end == std::string_view::npos) break;
    texts.sections[i] = postScript.substr(begin.size(), end - begin.size());
    postScript.remove_prefix(end + kSectionEnd.size());
  }
  rest = postScript;
  return rest.empty();
}

std::vector<Difference> compareTexts(const JobTexts& peer, const OurOutput& ours) {
  std::vector<Difference> differences;
  JobTexts texts;
  std::string rest;
  takeApart(ours.postScript, texts, rest);
  for (std::size_t i = 0; i < kSectionNames.size(); ++i) {
    compareText(kSectionNames[i], peer.sections[i], texts.sections[i], differences);
  }
  compareText("frame", "", rest, differences);
  compareText("JCL", peer.jcl, ours.pjl, differences);
  compareText("JCLEnd", peer.jclEnd, ours.jclEnd, differences);
  return differences;
}

std::size_t sizeOf(const JobTexts& texts) {
  std::size_t size = texts.jcl.size() + texts.jclEnd.size();
  for (const std::string& section : texts.sections) size += section.size();
  return size;
}

}  // namespace driver_feature::equivalence

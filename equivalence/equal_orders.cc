#include "equivalence/equal_orders.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "host/base/decimal.h"

namespace driver_feature::equivalence {

namespace {

constexpr std::string_view kBlockBegin = "[{\n%%BeginFeature: *";
constexpr std::string_view kBlockEnd = "%%EndFeature\n} stopped cleartomark\n";

// The framed codes of a section; what follows the last one is the last entry,
// empty in a whole section.
std::vector<std::string_view> blocksOf(std::string_view text) {
  std::vector<std::string_view> blocks;
  for (std::size_t end; (end = text.find(kBlockEnd)) != std::string_view::npos;) {
    blocks.push_back(text.substr(0, end + kBlockEnd.size()));
    text.remove_prefix(end + kBlockEnd.size());
  }
  blocks.push_back(text);
  return blocks;
}

// The order dependency of "*NonUIOrderDependency: 30 AnySetup *CustomPageSize
// True"; nothing when the PPD has none for that keyword.
std::optional<float> ownOrder(ppd_file_t& file, const std::string& keyword) {
  const std::string suffix = " *" + keyword + " True";
  for (const ppd_attr_t* attribute = ::ppdFindAttr(&file, "NonUIOrderDependency", nullptr);
       attribute != nullptr;
       attribute = ::ppdFindNextAttr(&file, "NonUIOrderDependency", nullptr)) {
    const std::string value = attribute->value != nullptr ? attribute->value : "";
    if (value.ends_with(suffix)) return host::decimal<float>(value);
  }
  return std::nullopt;
}

// The keyword of a framed code.
std::string keywordOf(std::string_view block) {
  block.remove_prefix(kBlockBegin.size());
  return std::string(block.substr(0, block.find(' ')));
}

// The order dependency of a framed code; nothing when it has no such frame, or
// the PPD no such option.
std::optional<float> orderOf(ppd_file_t& file, std::string_view block) {
  constexpr std::string_view kCustom = "Custom";
  if (!block.starts_with(kBlockBegin)) return std::nullopt;
  std::string keyword = keywordOf(block);
  if (keyword.starts_with(kCustom) && ::ppdFindOption(&file, keyword.c_str()) == nullptr) {
    if (const auto order = ownOrder(file, keyword)) return order;
    keyword.erase(0, kCustom.size());
  }
  const ppd_option_t* option = ::ppdFindOption(&file, keyword.c_str());
  if (option == nullptr) return std::nullopt;
  return option->order;
}

// The job in pieces: each framed code, and each text between them.
std::vector<std::string_view> piecesOf(std::string_view job) {
  std::vector<std::string_view> pieces;
  while (!job.empty()) {
    const std::size_t begin = std::min(job.find(kBlockBegin), job.size());
    if (begin > 0) pieces.push_back(job.substr(0, begin));
    job.remove_prefix(begin);
    const std::size_t end = job.find(kBlockEnd);
    if (end == std::string_view::npos) {
      if (!job.empty()) pieces.push_back(job);
      break;
    }
    pieces.push_back(job.substr(0, end + kBlockEnd.size()));
    job.remove_prefix(end + kBlockEnd.size());
  }
  return pieces;
}

std::string sectionOf(ppd_file_t& file, std::string_view block) {
  const ppd_option_t* option = ::ppdFindOption(&file, keywordOf(block).c_str());
  constexpr const char* kNames[] = {"AnySetup", "DocumentSetup", "ExitServer",
                                    "JCL",      "PageSetup",     "Prolog"};
  const auto section = static_cast<std::size_t>(option != nullptr ? option->section : 0);
  return section < std::size(kNames) ? kNames[section] : kNames[0];
}

}  // namespace

bool differsInEqualsOnly(ppd_file_t& file, std::string_view peer, std::string_view ours) {
  std::vector<std::string_view> peerBlocks = blocksOf(peer);
  std::vector<std::string_view> ourBlocks = blocksOf(ours);
  if (!peerBlocks.back().empty() || !ourBlocks.back().empty()) return false;
  peerBlocks.pop_back();
  ourBlocks.pop_back();
  std::optional<float> last;
  for (const std::string_view block : ourBlocks) {
    const std::optional<float> order = orderOf(file, block);
    if (!order || (last && *order < *last)) return false;
    last = order;
  }
  std::sort(peerBlocks.begin(), peerBlocks.end());
  std::sort(ourBlocks.begin(), ourBlocks.end());
  return peerBlocks == ourBlocks;
}

std::optional<std::string> sectionOfEquals(ppd_file_t& file, std::string_view peer,
                                           std::string_view ours) {
  std::vector<std::string_view> peerPieces = piecesOf(peer);
  std::vector<std::string_view> ourPieces = piecesOf(ours);
  if (peerPieces.size() != ourPieces.size()) return std::nullopt;
  std::optional<std::string> section;
  for (std::size_t i = 0; i < ourPieces.size(); ++i) {
    if (peerPieces[i] == ourPieces[i]) continue;
    const std::optional<float> order = orderOf(file, ourPieces[i]);
    if (!order || orderOf(file, peerPieces[i]) != order) return std::nullopt;
    if (!section) section = sectionOf(file, ourPieces[i]);
  }
  std::sort(peerPieces.begin(), peerPieces.end());
  std::sort(ourPieces.begin(), ourPieces.end());
  return peerPieces == ourPieces ? section : std::nullopt;
}

}  // namespace driver_feature::equivalence

#include "host/ppd/import/media_import.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_map>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/points.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kPageSize = "PageSize";
constexpr const char* kArea = "*ImageableArea";
constexpr float kLongest = 1e6F;  // Points; of longer sheets the file is wrong.

bool isLength(float points) {
  return points > 0 && points <= kLongest;
}

bool isEdge(float points) {
  return std::fabs(points) <= kLongest;
}

bool hasArea(const ppd_size_t& size) {
  return size.right > 0 || size.top > 0;
}

std::string lengthText(float points) {
  return millimetresText(points, [points](double read) { return pointsOf(read) == points; });
}

// The margin at the far side of a sheet, whose printable part ends at `edge`.
std::string farMarginText(float length, float edge) {
  return millimetresText(static_cast<double>(length) - edge,
                         [length, edge](double read) { return farEdge(length, read) == edge; });
}

// The size with an area within the sheet; without one where nothing is left of it.
ppd_size_t withinSheet(ppd_size_t size) {
  size.left = std::clamp(size.left, 0.0F, size.width);
  size.right = std::clamp(size.right, 0.0F, size.width);
  size.bottom = std::clamp(size.bottom, 0.0F, size.length);
  size.top = std::clamp(size.top, 0.0F, size.length);
  if (size.left < size.right && size.bottom < size.top) return size;
  size.left = size.right = size.bottom = size.top = 0;
  return size;
}

bool haveSameArea(const ppd_size_t& one, const ppd_size_t& other) {
  return one.left == other.left && one.right == other.right && one.bottom == other.bottom &&
         one.top == other.top;
}

ImportedElement sizeElement(const ppd_size_t& given, const std::string& option, Losses& losses) {
  const ppd_size_t size = withinSheet(given);
  if (!haveSameArea(size, given)) losses.note(LossKind::kKeyword, kArea);
  ImportedElement element{
      "Size",
      {{"Option", option}, {"Width", lengthText(size.width)}, {"Height", lengthText(size.length)}},
      {}};
  if (!hasArea(size)) return element;
  element.attributes.emplace_back("LeftMargin", lengthText(size.left));
  element.attributes.emplace_back("BottomMargin", lengthText(size.bottom));
  element.attributes.emplace_back("RightMargin", farMarginText(size.width, size.right));
  element.attributes.emplace_back("TopMargin", farMarginText(size.length, size.top));
  return element;
}

bool isUsable(const ppd_size_t& size) {
  return isLength(size.width) && isLength(size.length) && isEdge(size.left) &&
         isEdge(size.bottom) && isEdge(size.right) && isEdge(size.top);
}

void noteLoss(const ppd_size_t& size, Losses& losses) {
  if (equalKeywords(size.name, "Custom")) return;
  if (size.width > 0 || size.length > 0) losses.note(LossKind::kKeyword, "*PaperDimension");
  if (hasArea(size)) losses.note(LossKind::kKeyword, kArea);
}

// The options of the feature PageSize, by their names in small letters.
std::unordered_map<std::string, std::string> sizeOptions(ppd_file_t& ppd,
                                                         const ImportedNames& names) {
  std::unordered_map<std::string, std::string> options;
  ppd_option_t* option = ppdFindOption(&ppd, kPageSize);
  if (option == nullptr) return options;
  for (const ppd_choice_t* choice : choicesOf(*option)) {
    const std::string name = choice->choice;
    if (names.hasOption(option->keyword, name)) options.try_emplace(host::toLower(name), name);
  }
  return options;
}

}  // namespace

std::optional<ImportedElement> mediaElement(ppd_file_t& ppd, const ImportedNames& names,
                                            Losses& losses) {
  const std::unordered_map<std::string, std::string> options = sizeOptions(ppd, names);
  const ppd_option_t* feature = ppdFindOption(&ppd, kPageSize);
  ImportedElement media{"FeatureMedia", {}, {}};
  if (feature != nullptr) media.attributes.emplace_back("Feature", feature->keyword);
  // Of the mark on the option itself nothing may be left.
  const ppd_size_t* usual = ppdPageSize(&ppd, nullptr);
  if (usual != nullptr) {
    const auto option = options.find(host::toLower(std::string(usual->name)));
    if (option != options.end()) media.attributes.emplace_back("Default", option->second);
  }
  for (int i = 0; i < ppd.num_sizes; ++i) {
    const ppd_size_t& size = ppd.sizes[i];
    const auto option = options.find(host::toLower(std::string(size.name)));
    if (option != options.end() && isUsable(size) && !equalKeywords(size.name, "Custom")) {
      media.children.push_back(sizeElement(size, option->second, losses));
    } else {
      noteLoss(size, losses);
    }
  }
  if (media.children.empty()) return std::nullopt;
  return media;
}

}  // namespace driver_feature::ppd

#include "host/ppd/queue/page_sizes.h"

#include <cups/cups.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/points.h"
#include "host/ppd/queue/ppd_names.h"
#include "model/core_feature.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::ppd {

namespace {

constexpr float kUsualMargin = 18;  // What most printers need: a quarter of an inch.
constexpr float kTurned = 3;        // What sizes of the same sheet differ by.
constexpr int kLongest = 14400;     // 200 inches, as long as PostScript's sheets get.
constexpr std::string_view kPageSizeKey = "/PageSize";

// Width and length in points.
using Extent = std::pair<float, float>;

// Takes what is expected from the text; false when something else is there.
bool take(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

void skipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
}

template <class Number>
bool takeNumber(std::string_view& text, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return true;
}

// Nothing for an extent that no sheet has.
std::optional<Extent> possible(const Extent& extent) {
  const auto isPossible = [](float points) { return points >= 1 && points <= kLongest; };
  if (!isPossible(extent.first) || !isPossible(extent.second)) return std::nullopt;
  return extent;
}

// Two numbers, as in "595 842".
std::optional<Extent> takeExtent(std::string_view& text) {
  Extent extent;
  skipBlanks(text);
  if (!takeNumber(text, extent.first)) return std::nullopt;
  skipBlanks(text);
  if (!takeNumber(text, extent.second)) return std::nullopt;
  skipBlanks(text);
  return possible(extent);
}

std::optional<Extent> extentOf(const pwg_media_t* media) {
  if (media == nullptr || media->width <= 0 || media->length <= 0) return std::nullopt;
  const auto points = [](int hundredths) {
    return std::round(static_cast<float>(hundredths) * 72 / 2540);
  };
  // A name such as 226x310 may be millimetres, which libcups cannot know.
  return possible({points(media->width), points(media->length)});
}

// Of a name that says a size, such as w612h792 or w612h792.Fullbleed, whether
// there can be such a sheet or not.
std::optional<Extent> extentInName(std::string_view name) {
  int width = 0;
  int length = 0;
  if (!take(name, "w") || !takeNumber(name, width)) return std::nullopt;
  if (!take(name, "h") || !takeNumber(name, length)) return std::nullopt;
  return Extent(static_cast<float>(width), static_cast<float>(length));
}

std::optional<Extent> extentInCommand(const std::string& frame, const std::string& command) {
  std::string_view bare = command;
  const std::optional<Extent> extent = takeExtent(bare);
  if (extent && bare.empty()) return extent;
  std::string whole = frame;
  const std::size_t place = whole.find("%s");
  if (place != std::string::npos) whole.replace(place, 2, command);
  for (std::string_view rest = whole; !rest.empty();) {
    rest.remove_prefix(std::min(rest.find(kPageSizeKey), rest.size()));
    take(rest, kPageSizeKey);
    skipBlanks(rest);
    if (!take(rest, "[")) continue;
    const std::optional<Extent> found = takeExtent(rest);
    if (found && take(rest, "]")) return found;
  }
  return std::nullopt;
}

// Of a name that libcups knows, with or without what follows a dot.
std::optional<Extent> extentOfStandardName(const std::string& name) {
  const std::optional<Extent> whole = extentOf(pwgMediaForPPD(name.c_str()));
  return whole ? whole : extentOf(pwgMediaForPPD(name.substr(0, name.find('.')).c_str()));
}

std::string propertyText(CoreOption* option, const std::string& property) {
  std::string text;
  if (option != nullptr) option->getOptionProperty(property, text);
  return text;
}

bool isTurned(const Extent& one, const Extent& other) {
  return std::fabs(one.first - other.second) < kTurned &&
         std::fabs(one.second - other.first) < kTurned;
}

std::optional<Extent> extentOfChoice(const host::Model& model, const std::string& choice) {
  CoreFeature* feature = model.set->FindFeatureInFeatureList("PageSize");
  CoreOption* option =
      feature != nullptr ? feature->fetchOptionByName(std::string("Name"), choice) : nullptr;
  // A PPD may give such a name to no other size.
  if (const auto extent = extentInName(choice)) return possible(*extent);
  std::optional<Extent> standard =
      extentOf(pwgMediaForPWG(propertyText(option, "TESKCommand").c_str()));
  if (!standard) standard = extentOfStandardName(choice);
  std::string frame;
  if (feature != nullptr) feature->getFeatureProperty(std::string("PSCommand"), frame);
  const auto commanded = extentInCommand(frame, propertyText(option, "PSCommand"));
  // The command may be that of a sheet which is fed with its long edge first.
  if (!commanded || (standard && isTurned(*commanded, *standard))) return standard;
  return commanded;
}

// Whether a choice is for printing up to the edges.
bool isBorderless(const std::string& choice) {
  constexpr std::array<std::string_view, 5> kWords = {"fullbleed", "borderless", "nomargin",
                                                      "zeromargin", ".fb"};
  const std::string name = host::toLower(choice);
  return std::any_of(kWords.begin(), kWords.end(), [&name](std::string_view word) {
    return name.find(word) != std::string::npos;
  });
}

PageSize pageSize(const std::string& name, const Extent& extent) {
  const float shorter = std::min(extent.first, extent.second);
  const float margin = isBorderless(name) ? 0 : std::min(kUsualMargin, std::floor(shorter / 8));
  return {name,   extent.first,          extent.second,         margin,
          margin, extent.first - margin, extent.second - margin};
}

// Whether a name that says a size says another one.
bool saysOther(const std::string& name, const Extent& extent) {
  const auto said = extentInName(name);
  return said && (std::fabs(said->first - extent.first) >= 1 ||
                  std::fabs(said->second - extent.second) >= 1);
}

std::optional<PageSize> describedSize(const host::MediaSize& size) {
  const auto extent = possible({pointsOf(size.width), pointsOf(size.height)});
  if (!extent || saysOther(size.option, *extent)) return std::nullopt;
  const auto [width, length] = *extent;
  return PageSize{size.option,
                  width,
                  length,
                  std::clamp(pointsOf(size.left), 0.0F, width),
                  std::clamp(pointsOf(size.bottom), 0.0F, length),
                  std::clamp(farEdge(width, size.right), 0.0F, width),
                  std::clamp(farEdge(length, size.top), 0.0F, length)};
}

}  // namespace

std::optional<PageSize> pageSizeOf(const host::Model& model, const host::MediaSize* described,
                                   const std::string& choice) {
  if (described != nullptr) {
    if (auto size = describedSize(*described)) return size;
  }
  const std::optional<Extent> extent = extentOfChoice(model, choice);
  if (!extent) return std::nullopt;
  return pageSize(choice, *extent);
}

std::vector<PageSize> standardPageSizes() {
  std::vector<PageSize> sizes;
  for (const char* name : {"A4", "A3", "A5", "A6", "B5", "Letter", "Legal", "Executive", "Tabloid",
                           "Env10", "EnvC5", "EnvDL"}) {
    if (const auto extent = extentOfStandardName(name)) sizes.push_back(pageSize(name, *extent));
  }
  return sizes;
}

}  // namespace driver_feature::ppd

#include "host/ipp/custom_sizes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/description/description_index.h"
#include "host/ipp/media_entries.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

constexpr double kPoint = 2540.0 / 72;
constexpr double kMillimetre = 100;
constexpr int kLongest = 508000;  // As long as PostScript's sheets get.

// Descriptions do not say in which unit a custom size is. But such features begin
// with the size of a sheet that the description has.
std::optional<double> unitOf(const AttributeTable& table, const FeatureCapability& width,
                             const FeatureCapability& height) {
  const auto usualWidth = decimalIn(width.value);
  const auto usualHeight = decimalIn(height.value);
  if (!usualWidth || !usualHeight) return std::nullopt;
  if (width.name == "PageSize.Width") return kPoint;
  for (const double unit : {100.0, kPoint, 2540.0, 1000.0}) {
    const int tolerance = static_cast<int>(std::min(unit, 60.0));
    for (const MediaEntry& entry : table.media) {
      const bool isSame = std::fabs(*usualWidth * unit - entry.size.width) <= tolerance &&
                          std::fabs(*usualHeight * unit - entry.size.height) <= tolerance;
      if (isSame) return unit;
    }
  }
  return std::nullopt;
}

// A limit of a feature in hundredths of a millimetre, rounded to the inside.
std::optional<int> limitOf(const FeatureCapability& feature, double unit, bool isUpper) {
  std::optional<double> limit;
  if (feature.kind == host::FeatureKind::kFloatEntry) {
    const auto& number = isUpper ? feature.floatMax : feature.floatMin;
    if (number) limit = *decimalIn(host::numberText(*number));
  } else if (feature.kind == host::FeatureKind::kIntEntry) {
    const auto& number = isUpper ? feature.intMax : feature.intMin;
    if (number) limit = *number;
  }
  if (!limit) return std::nullopt;
  const double slack = 1e-6;
  const double hundredths =
      isUpper ? std::floor(*limit * unit + slack) : std::ceil(*limit * unit - slack);
  if (!(hundredths <= kLongest)) return isUpper ? std::optional(kLongest) : std::nullopt;
  return std::max(1, static_cast<int>(hundredths));
}

const FeatureCapability* featureCalled(const Capabilities& all, const std::string& ticketName) {
  for (const FeatureCapability& feature : all.features) {
    if (feature.ticketName == ticketName && !feature.isHardware) return &feature;
  }
  return nullptr;
}

}  // namespace

void addCustomSizes(AttributeTable& table, const Capabilities& all) {
  constexpr std::pair<const char*, const char*> kNames[] = {
      {"PageSize.Width", "PageSize.Height"}, {"CustomPageWidth", "CustomPageHeight"}};
  for (const auto& [widthName, heightName] : kNames) {
    const FeatureCapability* width = all.find(widthName);
    const FeatureCapability* height = all.find(heightName);
    if (width == nullptr || height == nullptr || table.size == nullptr) continue;
    const auto unit = unitOf(table, *width, *height);
    if (!unit) continue;
    CustomSizes custom{width, height, "", *unit};
    const auto leastWidth = limitOf(*width, *unit, false);
    const auto mostWidth = limitOf(*width, *unit, true);
    const auto leastHeight = limitOf(*height, *unit, false);
    const auto mostHeight = limitOf(*height, *unit, true);
    if (!leastWidth || !mostWidth || !leastHeight || !mostHeight) continue;
    if (*leastWidth > *mostWidth || *leastHeight > *mostHeight) continue;
    custom.leastWidth = *leastWidth;
    custom.mostWidth = *mostWidth;
    custom.leastHeight = *leastHeight;
    custom.mostHeight = *mostHeight;
    for (const ChoiceCapability& choice : table.size->choices) {
      const bool enables =
          width->enabler.name == table.size->name && width->enabler.value == choice.name;
      if (enables || (custom.choice.empty() && choice.name == "Custom")) {
        custom.choice = choice.name;
      }
    }
    if (!custom.choice.empty()) table.custom = custom;
  }
}

bool addRoll(AttributeTable& table, const Capabilities& all) {
  const FeatureCapability* width = featureCalled(all, "media-width");
  const FeatureCapability* length = featureCalled(all, "media-length");
  if (width == nullptr || !width->isList() || length == nullptr) return false;
  // IPP's lengths are whole numbers; a decimal number can only be millimetres.
  const bool isDecimal = length->kind == host::FeatureKind::kFloatEntry;
  const double unit = isDecimal ? kMillimetre : 1;
  const auto usual = decimalIn(length->value);
  const auto least = limitOf(*length, unit, false);
  const auto most = limitOf(*length, unit, true);
  if (!usual || !least || !most || *least > *most) return false;
  CustomSizes custom{nullptr, length, "", unit};
  custom.leastHeight = *least;
  custom.mostHeight = *most;
  for (const ChoiceCapability& choice : width->choices) {
    const int across = integerIn(choice.ticketName).value_or(0);
    const int down = static_cast<int>(std::lround(*usual * unit));
    if (across <= 0 || across > kLongest) continue;
    ChoiceCapability size = choice;
    size.width = across;
    size.height = down;
    table.media.push_back(
        {sizeName("om", "roll-" + std::to_string(across / 100), across, down), &choice, size});
    custom.leastWidth = custom.leastWidth == 0 ? across : std::min(custom.leastWidth, across);
    custom.mostWidth = std::max(custom.mostWidth, across);
  }
  if (table.media.empty()) return false;
  table.size = width;
  table.custom = custom;
  return true;
}

// The number of hundredths of a millimetre as a value of the feature, within its
// limits although numbers are rounded.
std::string lengthText(const FeatureCapability& feature, double unit, int hundredths) {
  double number = hundredths / unit;
  if (feature.kind == host::FeatureKind::kIntEntry) {
    number = std::round(number);
    if (feature.intMin) number = std::max(number, static_cast<double>(*feature.intMin));
    if (feature.intMax) number = std::min(number, static_cast<double>(*feature.intMax));
    return std::to_string(static_cast<int>(number));
  }
  // Where the unit is not the millimetre, thousandths are exact enough.
  auto rounded = static_cast<float>(std::round(number * 1000) / 1000);
  if (feature.floatMin) rounded = std::max(rounded, *feature.floatMin);
  if (feature.floatMax) rounded = std::min(rounded, *feature.floatMax);
  return host::numberText(rounded);
}

}  // namespace driver_feature::ipp

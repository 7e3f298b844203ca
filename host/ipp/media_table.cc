#include "host/ipp/media_table.h"

#include <cups/cups.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "host/base/text.h"
#include "host/description/description_index.h"
#include "host/ipp/words.h"
#include "host/ppd/queue/page_sizes.h"

namespace driver_feature::ipp {

namespace {

constexpr int kTolerance = 50;  // Half a millimetre: sizes this near are the same.
constexpr double kPoint = 2540.0 / 72;
constexpr int kLongest = 508000;  // As long as PostScript's sheets get.

bool isNear(int one, int other, int tolerance = kTolerance) {
  return std::abs(one - other) <= tolerance;
}

// "210" or "215.9": hundredths without zeros at the end.
std::string millimetres(int hundredths) {
  std::string text = std::to_string(hundredths / 100);
  const int rest = hundredths % 100;
  if (rest == 0) return text;
  text += "." + std::string(rest < 10 ? "0" : "") + std::to_string(rest);
  if (text.ends_with('0')) text.pop_back();
  return text;
}

// Whether the name is one of a standard: class, name, dimensions.
bool isStandardName(std::string_view name) {
  constexpr std::string_view kClasses[] = {"na_",  "iso_", "jis_", "jpn_", "prc_",
                                           "roc_", "oe_",  "om_",  "asme_"};
  const bool hasClass =
      std::any_of(std::begin(kClasses), std::end(kClasses),
                  [name](std::string_view each) { return name.starts_with(each); });
  return hasClass && isKeyword(name) && std::count(name.begin(), name.end(), '_') == 2;
}

std::string standardKeyword(const ChoiceCapability& choice) {
  if (isStandardName(choice.ticketName)) {
    const pwg_media_t* named = pwgMediaForPWG(choice.ticketName.c_str());
    const bool isSame = named != nullptr && isNear(named->width, choice.width) &&
                        isNear(named->length, choice.height);
    if (isSame) return choice.ticketName;
  }
  const pwg_media_t* standard = pwgMediaForSize(choice.width, choice.height);
  if (standard == nullptr || standard->pwg == nullptr || !isStandardName(standard->pwg)) return "";
  return isNear(standard->width, choice.width) && isNear(standard->length, choice.height)
             ? standard->pwg
             : "";
}

// The part of a name for people: small letters, digits and hyphens.
std::string namePart(const std::string& name) {
  std::string part = keywordFor(name);
  for (char& letter : part) {
    if (letter == '.' || letter == '_') letter = '-';
  }
  return part;
}

bool isNamedLike(const ChoiceCapability& choice, const std::string& keyword) {
  if (choice.ticketName == keyword) return true;
  const pwg_media_t* media = pwgMediaForPPD(choice.name.c_str());
  return media != nullptr && media->pwg != nullptr && media->pwg == keyword;
}

class EntryWriter {
 public:
  EntryWriter(AttributeTable& table, const FeatureCapability& sizes)
      : table_(table), sizes_(sizes) {}

  void run() {
    for (const ChoiceCapability& choice : sizes_.choices) {
      if (choice.hasSize()) add(choice);
    }
    for (MediaEntry& entry : table_.media) {
      if (!entry.keyword.empty()) continue;
      const ChoiceCapability& size = entry.size;
      entry.keyword = distinct(namePart(size.name), size.width, size.height);
    }
  }

 private:
  // The first of several with the same standard size gets its name, unless another
  // one is called like it.
  void add(const ChoiceCapability& choice) {
    const std::string keyword = standardKeyword(choice);
    const auto same =
        std::find_if(table_.media.begin(), table_.media.end(), [&](const MediaEntry& entry) {
          return !entry.isSecond && entry.size.width == choice.width &&
                 entry.size.height == choice.height;
        });
    MediaEntry entry{keyword, &choice, choice, same != table_.media.end()};
    if (!keyword.empty() && words_.has(keyword)) {
      const auto owner =
          std::find_if(table_.media.begin(), table_.media.end(),
                       [&](const MediaEntry& each) { return each.keyword == keyword; });
      if (isNamedLike(choice, keyword) && !isNamedLike(*owner->choice, keyword)) {
        owner->keyword.clear();
      } else {
        entry.keyword.clear();
      }
    } else if (!keyword.empty()) {
      words_.add(keyword);
    }
    table_.media.push_back(std::move(entry));
  }

  std::string distinct(const std::string& name, int width, int height) {
    for (int number = 1;; ++number) {
      const std::string tail = number == 1 ? "" : "-" + std::to_string(number);
      std::string keyword = sizeName("om", name + tail, width, height);
      if (!words_.has(keyword)) return words_.add(keyword);
    }
  }

  AttributeTable& table_;
  const FeatureCapability& sizes_;
  DistinctWords words_;
};

void addStandardSizes(AttributeTable& table) {
  for (const ppd::PageSize& each : ppd::standardPageSizes()) {
    const pwg_media_t* media = pwgMediaForPPD(each.name.c_str());
    if (media == nullptr) continue;
    ChoiceCapability size;
    size.name = each.name;
    size.width = media->width;
    size.height = media->length;
    size.left = size.bottom = size.right = size.top =
        static_cast<int>(std::lround(static_cast<double>(each.margin) * kPoint));
    table.media.push_back({media->pwg, nullptr, size, false});
  }
}

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

void addCustom(AttributeTable& table, const Capabilities& all) {
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

bool hasChoice(const FeatureCapability* feature, const std::string& name) {
  if (feature == nullptr) return false;
  return std::any_of(feature->choices.begin(), feature->choices.end(),
                     [&name](const ChoiceCapability& choice) { return choice.name == name; });
}

// A PPD has the sizes twice, and one of both is chosen at a time: that which the
// description has chosen to begin with.
std::vector<host::Setting> settingsFor(const AttributeTable& table, const std::string& choice) {
  const bool byRegion = table.region != nullptr && table.size->value == kNotSet &&
                        table.region->value != kNotSet && hasChoice(table.region, choice);
  const FeatureCapability* chosen = byRegion ? table.region : table.size;
  const FeatureCapability* other = byRegion ? table.size : table.region;
  std::vector<host::Setting> settings = {{chosen->name, choice}};
  if (hasChoice(other, kNotSet)) settings.push_back({other->name, kNotSet});
  return settings;
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

}  // namespace

std::string sizeName(const std::string& prefix, const std::string& name, int width, int height) {
  return prefix + "_" + name + "_" + millimetres(width) + "x" + millimetres(height) + "mm";
}

void addMedia(AttributeTable& table, const Capabilities& all) {
  table.size = all.find(all.sizeFeature);
  if (table.size != nullptr) EntryWriter(table, *table.size).run();
  if (table.media.empty()) addStandardSizes(table);
  if (table.size == nullptr) return;
  if (table.size->name == "PageSize") table.region = all.find("PageRegion");
  if (table.region != nullptr && !table.region->isList()) table.region = nullptr;
  std::string usual = table.size->value;
  if (usual == kNotSet && table.region != nullptr) usual = table.region->value;
  for (std::size_t i = 0; i < table.media.size(); ++i) {
    if (table.media[i].choice != nullptr && table.media[i].choice->name == usual) {
      table.usualMedia = i;
    }
  }
  addCustom(table, all);
}

MediaChoice mediaChoice(const AttributeTable& table, const MediaEntry& entry) {
  MediaChoice choice{{}, entry.size.width, entry.size.height};
  if (entry.choice != nullptr) choice.settings = settingsFor(table, entry.choice->name);
  return choice;
}

std::optional<MediaChoice> customChoice(const AttributeTable& table, int width, int height) {
  if (!table.custom) return std::nullopt;
  const CustomSizes& custom = *table.custom;
  if (width < custom.leastWidth || width > custom.mostWidth) return std::nullopt;
  if (height < custom.leastHeight || height > custom.mostHeight) return std::nullopt;
  MediaChoice choice{settingsFor(table, custom.choice), width, height};
  // The whole of a PPD's custom size belongs to PageSize.
  if (table.region != nullptr) {
    choice.settings = {{table.size->name, custom.choice}};
    if (hasChoice(table.region, kNotSet)) choice.settings.push_back({table.region->name, kNotSet});
  }
  choice.settings.push_back({custom.width->name, lengthText(*custom.width, custom.unit, width)});
  choice.settings.push_back({custom.height->name, lengthText(*custom.height, custom.unit, height)});
  return choice;
}

const MediaEntry* entryOfSize(const AttributeTable& table, int width, int height,
                              const WantedMargins& margins) {
  const auto fits = [](int wanted, int own) { return wanted < 0 || isNear(wanted, own, 0); };
  const MediaEntry* best = nullptr;
  for (const MediaEntry& entry : table.media) {
    const ChoiceCapability& size = entry.size;
    if (!isNear(size.width, width) || !isNear(size.height, height)) continue;
    const bool hasMargins = fits(margins.left, size.left) && fits(margins.bottom, size.bottom) &&
                            fits(margins.right, size.right) && fits(margins.top, size.top);
    if (hasMargins) return &entry;
    if (best == nullptr) best = &entry;
  }
  return best;
}

std::optional<MediaChoice> choiceNamed(const AttributeTable& table, const std::string& keyword) {
  for (const MediaEntry& entry : table.media) {
    if (entry.keyword == keyword) return mediaChoice(table, entry);
  }
  // Names that say no size are none of libcups'.
  const pwg_media_t* media = pwgMediaForPWG(keyword.c_str());
  if (media == nullptr) media = pwgMediaForLegacy(keyword.c_str());
  if (media == nullptr || media->width <= 0 || media->length <= 0) return std::nullopt;
  const int width = media->width;
  const int height = media->length;
  if (const MediaEntry* entry = entryOfSize(table, width, height, {})) {
    return mediaChoice(table, *entry);
  }
  return customChoice(table, width, height);
}

const MediaEntry* entryOfSettings(const AttributeTable& table,
                                  const std::vector<host::Setting>& settings) {
  const MediaEntry* found = nullptr;
  for (const host::Setting& setting : settings) {
    const bool isSize = (table.size != nullptr && setting.name == table.size->name) ||
                        (table.region != nullptr && setting.name == table.region->name);
    if (!isSize || setting.value == kNotSet) continue;
    found = nullptr;
    for (const MediaEntry& entry : table.media) {
      if (entry.choice != nullptr && entry.choice->name == setting.value) found = &entry;
    }
  }
  return found;
}

}  // namespace driver_feature::ipp

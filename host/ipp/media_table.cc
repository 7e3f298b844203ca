#include "host/ipp/media_table.h"

#include <cups/cups.h>

#include <algorithm>

#include "host/ipp/custom_sizes.h"
#include "host/ipp/media_entries.h"

namespace driver_feature::ipp {

namespace {

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

// Sheets of a roll have widths of a list, and any length.
bool isRoll(const AttributeTable& table) {
  return table.custom && table.custom->width == nullptr;
}

void addLength(const AttributeTable& table, MediaChoice& choice) {
  const CustomSizes& custom = *table.custom;
  choice.settings.push_back(
      {custom.height->name, lengthText(*custom.height, custom.unit, choice.height)});
}

std::optional<MediaChoice> rollChoice(const AttributeTable& table, int width, int height) {
  for (const MediaEntry& entry : table.media) {
    if (!isSameLength(entry.size.width, width)) continue;
    MediaChoice choice{settingsFor(table, entry.choice->name), entry.size.width, height};
    addLength(table, choice);
    return choice;
  }
  return std::nullopt;
}

}  // namespace

void addMedia(AttributeTable& table, const Capabilities& all) {
  table.size = all.find(all.sizeFeature);
  if (table.size != nullptr) addMediaEntries(table, *table.size);
  const bool isRoll = table.media.empty() && addRoll(table, all);
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
  if (!isRoll) addCustomSizes(table, all);
}

MediaChoice mediaChoice(const AttributeTable& table, const MediaEntry& entry) {
  MediaChoice choice{{}, entry.size.width, entry.size.height};
  if (entry.choice == nullptr) return choice;
  choice.settings = settingsFor(table, entry.choice->name);
  if (isRoll(table)) addLength(table, choice);
  return choice;
}

std::optional<MediaChoice> customChoice(const AttributeTable& table, int width, int height) {
  if (!table.custom) return std::nullopt;
  const CustomSizes& custom = *table.custom;
  if (width < custom.leastWidth || width > custom.mostWidth) return std::nullopt;
  if (height < custom.leastHeight || height > custom.mostHeight) return std::nullopt;
  if (isRoll(table)) return rollChoice(table, width, height);
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
  const auto fits = [](int wanted, int own) { return wanted < 0 || wanted == own; };
  const MediaEntry* best = nullptr;
  for (const MediaEntry& entry : table.media) {
    const ChoiceCapability& size = entry.size;
    if (!isSameLength(size.width, width) || !isSameLength(size.height, height)) continue;
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

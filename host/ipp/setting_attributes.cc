#include "host/ipp/setting_attributes.h"

#include <algorithm>

#include "host/ipp/finishings.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/media_attributes.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

// The attribute that can say this setting; the registered one first.
const JobAttribute* attributeFor(const AttributeTable& table, const host::Setting& setting) {
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.feature == nullptr || attribute.feature->name != setting.name) continue;
    if (!attribute.feature->isList() || attribute.valueOfChoice(setting.value) != nullptr) {
      return &attribute;
    }
  }
  return nullptr;
}

bool isFinishing(const AttributeTable& table, const std::string& feature) {
  return std::any_of(
      table.finishings.begin(), table.finishings.end(),
      [&feature](const FinishingEntry& entry) { return entry.feature->name == feature; });
}

void addFinishingsOf(ipp_t* target, ipp_tag_t group, const AttributeTable& table,
                     const std::vector<host::Setting>& settings) {
  std::vector<int> numbers;
  bool isAsked = false;
  for (const host::Setting& setting : settings) {
    isAsked = isAsked || isFinishing(table, setting.name);
    for (const FinishingEntry& entry : table.finishings) {
      const bool isIt = entry.feature->name == setting.name && entry.choice == setting.value;
      if (isIt) numbers.push_back(entry.number);
    }
  }
  if (isAsked && numbers.empty()) numbers.push_back(kNoFinishing);
  addIntegers(target, group, "finishings", IPP_TAG_ENUM, numbers);
}

bool isOf(const FeatureCapability* feature, const std::string& name) {
  return feature != nullptr && feature->name == name;
}

}  // namespace

void addSettingAttributes(ipp_t* target, ipp_tag_t group, const AttributeTable& table,
                          const std::vector<host::Setting>& settings) {
  for (const host::Setting& setting : settings) {
    const JobAttribute* attribute = attributeFor(table, setting);
    if (isOf(table.copies, setting.name)) {
      if (const auto copies = integerIn(setting.value)) {
        ippAddInteger(target, group, IPP_TAG_INTEGER, "copies", *copies);
      }
      continue;
    }
    if (attribute == nullptr || attribute->isMediaMember || attribute->feature->isEncrypted) {
      continue;
    }
    const WordValue* value = attribute->valueOfChoice(setting.value);
    addWords(target, group, attribute->name, attribute->syntax,
             {value != nullptr ? value->word : setting.value});
  }
  if (ipp_t* media = mediaColOf(table, settings)) {
    addCollections(target, group, "media-col", {media});
  }
  addFinishingsOf(target, group, table, settings);
}

std::vector<std::string> carriersOf(const AttributeTable& table, const std::string& feature) {
  std::vector<std::string> names;
  if (isOf(table.size, feature) || isOf(table.region, feature)) {
    const bool hasSizes = table.media.front().choice != nullptr;
    if (hasSizes) names.insert(names.end(), {"media", "media-col"});
  }
  const bool isCustom =
      table.custom && (isOf(table.custom->width, feature) || isOf(table.custom->height, feature));
  if (isCustom) names.insert(names.end(), {"media", "media-col"});
  if (isOf(table.copies, feature)) names.emplace_back("copies");
  if (isOf(table.password, feature)) names.emplace_back("job-password");
  if (isFinishing(table, feature)) names.emplace_back("finishings");
  for (const JobAttribute& attribute : table.attributes) {
    if (!isOf(attribute.feature, feature)) continue;
    names.push_back(attribute.isMediaMember ? "media-col" : attribute.name);
  }
  for (const JobAttribute& attribute : table.hardware) {
    if (isOf(attribute.feature, feature)) names.push_back(attribute.name);
  }
  return names;
}

}  // namespace driver_feature::ipp

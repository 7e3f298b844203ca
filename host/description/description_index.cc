#include "host/description/description_index.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

std::string textOf(const AttributeMap& attributes, const std::string& name) {
  std::string text;
  attributes.loadMapVariable(name, text, nullptr);
  return text;
}

std::optional<int> intOf(const AttributeMap& attributes, const std::string& name) {
  int number = 0;
  if (!attributes.loadMapVariable(name, number, nullptr)) return std::nullopt;
  return number;
}

std::optional<float> floatOf(const AttributeMap& attributes, const std::string& name) {
  double number = 0;
  if (!attributes.loadMapVariable(name, number, nullptr)) return std::nullopt;
  return static_cast<float>(number);
}

template <class Number>
std::string composeRange(const std::optional<Number>& lowest, const std::optional<Number>& highest,
                         std::string (*spell)(Number)) {
  if (lowest && highest) return "from " + spell(*lowest) + " to " + spell(*highest);
  if (lowest) return "at least " + spell(*lowest);
  if (highest) return "at most " + spell(*highest);
  return "";
}

}  // namespace

DescriptionIndex::DescriptionIndex(void* description) {
  addChildren(description, "");
}

const FeatureLimits& DescriptionIndex::limitsOf(const std::string& featureName) const {
  static const FeatureLimits kNone;
  const auto found = features_.find(featureName);
  return found != features_.end() ? found->second : kNone;
}

std::vector<std::string> DescriptionIndex::groupsAround(const std::string& featureName) const {
  std::vector<std::string> names;
  std::string group = limitsOf(featureName).group;
  // Groups follow the group that contains them, so one backward pass is enough.
  // NOLINTNEXTLINE(modernize-loop-convert): clang 14 has no reversing view.
  for (auto entry = groups_.rbegin(); entry != groups_.rend(); ++entry) {
    if (group.empty() || entry->name != group) continue;
    names.push_back(group);
    group = entry->outer;
  }
  return names;
}

std::string DescriptionIndex::recordsOf(const std::string& featureName) const {
  if (limitsOf(featureName).group.empty()) return "";
  const std::vector<std::string> around = groupsAround(featureName);
  for (const GroupEntry& group : groups_) {
    if (group.kind != GroupKind::kDynamic) continue;
    if (std::find(around.begin(), around.end(), templateOf(group.name)) != around.end()) {
      return group.name;
    }
  }
  return "";
}

GroupKind DescriptionIndex::groupNamed(const std::string& name) const {
  GroupKind found = GroupKind::kNone;
  for (const GroupEntry& group : groups_) {
    if (group.name == name && found != GroupKind::kStatic) found = group.kind;
  }
  return found;
}

std::string DescriptionIndex::templateOf(const std::string& dynamicGroup) const {
  for (std::size_t i = 0; i + 1 < groups_.size(); ++i) {
    // The template is the dynamic group's only child.
    const bool isDynamic = groups_[i].kind == GroupKind::kDynamic;
    if (isDynamic && groups_[i].name == dynamicGroup) return groups_[i + 1].name;
  }
  return "";
}

void DescriptionIndex::addChildren(void* element, const std::string& outer) {
  AttributeMap attributes;
  forEachChild(element, [&](void* child) {
    const std::string tag = tagOf(child);
    attributes.clear();
    pParserInstance->attributes(child, attributes);
    if (tag == "Feature") {
      addFeature(child, attributes, outer);
    } else if (tag == "FeatureStaticGroup" || tag == "FeatureDynamicGroup") {
      const std::string name = textOf(attributes, "Name");
      const auto kind = tag == "FeatureStaticGroup" ? GroupKind::kStatic : GroupKind::kDynamic;
      groups_.push_back({name, kind, outer, XMLDocument::lineOf(child)});
      addChildren(child, name);
    }
  });
}

void DescriptionIndex::addFeature(void* element, const AttributeMap& attributes,
                                  const std::string& group) {
  FeatureLimits limits;
  limits.group = group;
  limits.line = XMLDocument::lineOf(element);
  // The library reads each limit for one type of feature only.
  const std::string type = textOf(attributes, "FeatureType");
  if (type == "IntEntry") {
    limits.intMin = intOf(attributes, "IntMinValue");
    limits.intMax = intOf(attributes, "IntMaxValue");
  } else if (type == "FloatEntry") {
    limits.floatMin = floatOf(attributes, "FloatMinValue");
    limits.floatMax = floatOf(attributes, "FloatMaxValue");
  } else if (type == "TextEntry") {
    const auto length = intOf(attributes, "MaxTextLength");
    if (length && *length > 0) limits.maxTextLength = length;
    limits.allowedCharacters = textOf(attributes, "TextValidationCharSet");
    limits.changeRoutine = textOf(attributes, "AddCallbackRoutine");
  }
  features_[textOf(attributes, "Name")] = limits;
}

std::string rangeText(const std::optional<int>& lowest, const std::optional<int>& highest) {
  return composeRange<int>(lowest, highest, [](int number) { return std::to_string(number); });
}

std::string rangeText(const std::optional<float>& lowest, const std::optional<float>& highest) {
  return composeRange<float>(lowest, highest, &numberText);
}

std::string numberText(float number) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), result.ptr};
}

}  // namespace driver_feature::host

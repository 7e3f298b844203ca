// Defaults and the limits that they must respect. The library checks none.

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/base/text.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

std::vector<std::string> optionNames(const host::Element& feature) {
  std::vector<std::string> names;
  for (const auto& option : feature.children) {
    if (option->find("Name") != nullptr) names.push_back(option->name());
  }
  return names;
}

void checkDefaultOption(const host::Element& feature, Findings& findings) {
  const std::vector<std::string> names = optionNames(feature);
  if (names.empty()) return;
  const host::Attribute* value = feature.find("DefaultValue");
  if (value == nullptr) {
    findings.push_back(
        {Code::kNoDefault,
         feature.position,
         describeElement(feature) + " has no default; its first option \"" + names.front() +
             "\" is taken",
         "name the default option in DefaultValue",
         {"CreateFeature() - No default value for feature \"" + feature.name() + "\", using 0."}});
    return;
  }
  if (std::find(names.begin(), names.end(), value->value) != names.end()) return;
  findings.push_back({Code::kUnknownDefault,
                      value->position,
                      "\"" + value->value + "\" is not an option of " + describeElement(feature) +
                          "; its first option \"" + names.front() + "\" is taken",
                      didYouMean(value->value, names, "choose one of " + host::join(names, ", ")),
                      {"CreateFeature() - Cannot find default option \"" + value->value +
                       "\" for feature \"" + feature.name() + "\", using 0."}});
}

// The attributes that hold a number's limits and default.
struct RangeNames {
  const char* lowest;
  const char* highest;
};

template <class Number>
void checkRange(const host::Element& feature, const RangeNames& names,
                std::optional<Number> (*read)(const host::Element&, const std::string&,
                                              std::string*),
                Findings& findings) {
  const auto lowest = read(feature, names.lowest, nullptr);
  const auto highest = read(feature, names.highest, nullptr);
  const auto value = read(feature, "DefaultValue", nullptr);
  if (lowest && highest && *lowest > *highest) {
    findings.push_back(
        {Code::kCrossedLimits,
         feature.positionOf(names.lowest),
         "the minimum " + feature.text(names.lowest) + " of " + describeElement(feature) +
             " is above its maximum " + feature.text(names.highest),
         std::string("swap ") + names.lowest + " and " + names.highest + " or correct them",
         {}});
    return;
  }
  const bool below = value && lowest && *value < *lowest;
  const bool above = value && highest && *value > *highest;
  if (!below && !above) return;
  const char* limit = below ? names.lowest : names.highest;
  findings.push_back(
      {Code::kDefaultOutOfRange,
       feature.positionOf("DefaultValue"),
       "the default " + feature.text("DefaultValue") + " of " + describeElement(feature) + " is " +
           (below ? "below its minimum " : "above its maximum ") + feature.text(limit),
       std::string("correct DefaultValue or ") + limit,
       {}});
}

void checkFloatSizes(const host::Element& feature, Findings& findings) {
  for (const char* name : {"FloatMinValue", "FloatMaxValue", "DefaultValue"}) {
    const auto value = doubleOf(feature, name);
    constexpr double kHighest = std::numeric_limits<float>::max();
    if (!value || std::abs(*value) <= kHighest) continue;
    findings.push_back({Code::kFloatTooLarge,
                        feature.positionOf(name),
                        "\"" + feature.text(name) + "\" is too large for \"" + name + "\" of " +
                            describeElement(feature),
                        "give a number from -3.4e38 to 3.4e38",
                        {}});
  }
}

}  // namespace

void checkDefaults(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role != host::Role::kFeature || !element.kind) return;
    switch (*element.kind) {
      case host::FeatureKind::kMultiSelect:
        return checkDefaultOption(element, findings);
      case host::FeatureKind::kIntEntry:
        return checkRange<int>(element, {"IntMinValue", "IntMaxValue"}, &intOf, findings);
      case host::FeatureKind::kFloatEntry:
        checkFloatSizes(element, findings);
        return checkRange<double>(element, {"FloatMinValue", "FloatMaxValue"}, &doubleOf, findings);
      default:
        return;
    }
  });
}

}  // namespace driver_feature::check

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

// Reports a default that users cannot choose, unless the whole feature is
// waiting for something to make it available.
void checkAvailability(const host::Element& feature, const std::string& name, Findings& findings) {
  const auto option = std::find_if(feature.children.begin(), feature.children.end(),
                                   [&name](const auto& child) { return child->name() == name; });
  if (boolOf(**option, "Sensitivity") != false || boolOf(feature, "Sensitivity") == false) return;
  findings.push_back({Code::kUnavailableDefault,
                      feature.positionOf("DefaultValue"),
                      "the default \"" + name + "\" of " + describeElement(feature) +
                          " is unavailable, by Sensitivity of its option",
                      "choose another default, or make the option available",
                      {}});
}

void checkDefaultOption(const host::Element& feature, Findings& findings) {
  const std::vector<std::string> names = optionNames(feature);
  if (names.empty()) return;
  const host::Attribute* value = feature.find("DefaultValue");
  const bool isKnown =
      value != nullptr && std::find(names.begin(), names.end(), value->value) != names.end();
  checkAvailability(feature, isKnown ? value->value : names.front(), findings);
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
  if (isKnown) return;
  findings.push_back({Code::kUnknownDefault,
                      value->position,
                      "\"" + value->value + "\" is not an option of " + describeElement(feature) +
                          "; its first option \"" + names.front() + "\" is taken",
                      didYouMean(value->value, names, "choose one of " + host::listed(names)),
                      {"CreateFeature() - Cannot find default option \"" + value->value +
                       "\" for feature \"" + feature.name() + "\", using 0."}});
}

// The attributes that hold a number's limits and default.
struct RangeNames {
  const char* lowest;
  const char* highest;
};

void reportImpliedDefault(const host::Element& feature, const char* limit, bool below,
                          Findings& findings) {
  findings.push_back({Code::kDefaultOutOfRange,
                      feature.positionOf(limit),
                      describeElement(feature) + " has no default, and 0, which is taken, is " +
                          (below ? "below its minimum " : "above its maximum ") +
                          feature.text(limit),
                      "give DefaultValue",
                      {}});
}

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
  // Without the attribute the library takes 0. One that does not convert is
  // reported as such.
  const bool isAbsent = feature.find("DefaultValue") == nullptr;
  if (!value && !isAbsent) return;
  const Number taken = value.value_or(0);
  const bool below = lowest && taken < *lowest;
  const bool above = highest && taken > *highest;
  if (!below && !above) return;
  const char* limit = below ? names.lowest : names.highest;
  if (isAbsent) return reportImpliedDefault(feature, limit, below, findings);
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

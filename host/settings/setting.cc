#include "host/settings/setting.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "host/settings/value_safety.h"

namespace driver_feature::host {

namespace {

// The whole of `text` as a decimal number, with or without a sign.
template <class Number>
std::errc readNumber(std::string_view text, Number& number) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ptr != text.data() + text.size()) return std::errc::invalid_argument;
  return result.ec;
}

// One setting on its way through the checks.
class Check {
 public:
  Check(const Model& model, const Setting& setting, const FeatureView& feature)
      : setting_(setting),
        feature_(feature),
        limits_(model.index.limitsOf(setting.name)),
        place_(" (" + model.file + ":" + std::to_string(limits_.line) + ")") {}

  Result<> run() const {
    if (!feature_.hasValue()) {
      return refused(inQuotes(setting_.name) + " is a " + feature_.typeName() +
                     " feature and holds no value; leave it out");
    }
    if (!feature_.isAvailable()) {
      return refused("feature " + inQuotes(setting_.name) + " is unavailable; leave it out");
    }
    switch (feature_.kind()) {
      case FeatureKind::kMultiSelect:
        return checkChoice();
      case FeatureKind::kIntEntry:
        return checkInt();
      case FeatureKind::kFloatEntry:
        return checkFloat();
      default:
        return checkText();
    }
  }

 private:
  Result<> checkChoice() const {
    const std::vector<Choice> choices = feature_.choices();
    const auto chosen = std::find_if(choices.begin(), choices.end(), [this](const Choice& choice) {
      return choice.name == setting_.value;
    });
    const std::string feature = "feature " + inQuotes(setting_.name);
    std::vector<std::string> names;
    for (const Choice& choice : choices) {
      if (choice.available) names.push_back(choice.name);
    }
    const std::string remedy =
        names.empty() ? "leave it out, since none is available" : "choose one of " + listed(names);
    if (chosen == choices.end()) {
      const auto nearest = nearestName(setting_.value, names);
      return refused(
          feature + " has no option " + inQuotes(setting_.value) + "; " +
          (nearest ? "did you mean " + inQuotes(*nearest) + "? (" + remedy + ")" : remedy));
    }
    if (chosen->available) return {};
    return refused("option " + inQuotes(setting_.value) + " of " + feature + " is unavailable; " +
                   remedy);
  }

  Result<> checkInt() const {
    int number = 0;
    const std::errc error = readNumber(setting_.value, number);
    const bool wide = error == std::errc::result_out_of_range;
    return checkNumber<int>(error == std::errc() || wide, wide, number, limits_.intMin,
                            limits_.intMax, "whole number");
  }

  Result<> checkFloat() const {
    double number = 0;
    const std::errc error = readNumber(setting_.value, number);
    const bool isNumber =
        error == std::errc() ? std::isfinite(number) : error == std::errc::result_out_of_range;
    // Numbers slightly above the largest float still round to it; so does its
    // own shortest text.
    constexpr double kTooLarge = 0x1.ffffffp127;
    constexpr double kLargest = std::numeric_limits<float>::max();
    const bool wide = error != std::errc() || std::fabs(number) >= kTooLarge;
    const double fitting = std::clamp(number, -kLargest, kLargest);
    return checkNumber<float>(isNumber, wide, wide ? 0 : static_cast<float>(fitting),
                              limits_.floatMin, limits_.floatMax, "decimal number");
  }

  template <class Number>
  Result<> checkNumber(bool isNumber, bool wide, Number number, const std::optional<Number>& lowest,
                       const std::optional<Number>& highest, const std::string& kind) const {
    const std::string range = rangeText(lowest, highest);
    if (lowest && highest && *lowest > *highest) {
      return refused("no number is allowed, because the limits are " + range +
                     "; correct them in the description" + place_);
    }
    const std::string give = "; give a " + kind;
    if (!isNumber) {
      return refused(inQuotes(setting_.value) + " is not a " + kind + give +
                     (range.empty() ? "" : ", " + range + place_));
    }
    using Limits = std::numeric_limits<Number>;
    const std::string outside = setting_.value + " is out of range" + give + ", ";
    if (wide) {
      return refused(outside +
                     rangeText(std::optional(lowest.value_or(Limits::lowest())),
                               std::optional(highest.value_or(Limits::max()))) +
                     (range.empty() ? "" : place_));
    }
    const bool fits = (!lowest || number >= *lowest) && (!highest || number <= *highest);
    if (fits) return {};
    return refused(outside + range + place_);
  }

  Result<> checkText() const {
    const auto characters = splitCharacters(setting_.value);
    const auto allowed = splitCharacters(limits_.allowedCharacters);
    const auto foreign =
        std::find_if(characters.begin(), characters.end(), [&allowed](std::string_view character) {
          return std::find(allowed.begin(), allowed.end(), character) == allowed.end();
        });
    if (!allowed.empty() && foreign != characters.end()) {
      return refused("character " + inQuotes(*foreign) + " is not allowed; use only " +
                     inQuotes(limits_.allowedCharacters) + place_);
    }
    const auto length = static_cast<long long>(characters.size());
    if (!limits_.maxTextLength || length <= *limits_.maxTextLength) return {};
    return refused("the text has " + std::to_string(length) + " characters; give at most " +
                   std::to_string(*limits_.maxTextLength) + place_);
  }

  const Setting& setting_;
  const FeatureView& feature_;
  const FeatureLimits& limits_;
  std::string place_;
};

Result<> refuseName(const Model& model, const std::string& name) {
  switch (model.index.groupNamed(name)) {
    case GroupKind::kStatic:
      return refused(inQuotes(name) +
                     " is a static group and holds no value; set its features instead");
    case GroupKind::kDynamic:
      return refused(inQuotes(name) +
                     " is a dynamic group and holds records, not a value; leave it out");
    case GroupKind::kNone:
      break;
  }
  std::vector<std::string> names;
  for (const auto& [known, feature] : model.features) names.push_back(known);
  const auto nearest = nearestName(name, names);
  return refused("there is no feature " + inQuotes(name) + "; " +
                 (nearest ? "did you mean " + inQuotes(*nearest) + "?"
                          : "\"driver-feature show\" lists the features"));
}

}  // namespace

Result<Setting> parseSetting(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) return refused("there is no value; write NAME=VALUE");
  if (equals == 0) return refused("there is no feature name; write NAME=VALUE");
  return Setting{text.substr(0, equals), text.substr(equals + 1)};
}

Result<> checkSetting(const Model& model, const Setting& setting) {
  const auto found = model.features.find(setting.name);
  if (found == model.features.end()) return refuseName(model, setting.name);
  if (Result<> done = Check(model, setting, found->second).run(); !done) return done;
  return refuseUnsafeValue(model, setting.name, setting.value);
}

Result<> applySetting(const Model& model, const Setting& setting) {
  if (Result<> done = checkSetting(model, setting); !done) return done;
  if (model.features.at(setting.name).setValue(setting.value)) return {};
  return refused("the feature library refuses the value; run again with --verbose to see why");
}

Result<> applyLoadedSetting(const Model& model, const std::string& name, const std::string& value) {
  return applySetting(model, {name, value});
}

}  // namespace driver_feature::host

#include "host/ppd/custom/custom_routines.h"

#include <optional>
#include <vector>

#include "frame/exports.h"
#include "host/ppd/custom/custom_text.h"
#include "model/core_feature.h"
#include "model/core_feature_set.h"

class DriverFeatureSet;  // A CoreFeatureSet, its only base.

namespace driver_feature::ppd {

namespace {

enum FeatureType : int { kIntEntry = 2, kTextEntry = 3, kFloatEntry = 4 };

std::string textOf(CoreFeature& feature, const char* property) {
  std::string text;
  feature.getFeatureProperty(std::string(property), text);
  return text;
}

std::string optionText(CoreFeature& feature, const char* property) {
  std::string text;
  CoreOption* option = feature.fetchCurrentOption();
  if (option != nullptr) option->getOptionProperty(std::string(property), text);
  return text;
}

bool isChosen(CoreFeatureSet& set, const CustomPlan& plan) {
  CoreFeature* feature = set.FindFeatureInFeatureList(plan.feature);
  return feature != nullptr && textOf(*feature, "ValueString") == plan.option;
}

std::string valueOf(CoreFeatureSet& set, const CustomValue& source, bool forPjl) {
  if (source.isNumber) return source.text;
  CoreFeature* feature = set.FindFeatureInFeatureList(source.text);
  if (feature == nullptr) return "";
  switch (feature->getFeatureType()) {
    case kIntEntry: {
      int value = 0;
      feature->getFeatureProperty(std::string("CurrentIntValue"), &value);
      return std::to_string(value);
    }
    case kFloatEntry: {
      float value = 0;
      feature->getFeatureProperty(std::string("CurrentFloatValue"), &value);
      return customNumber(static_cast<double>(value));
    }
    case kTextEntry: {
      const std::string value = textOf(*feature, "CurrentTextValue");
      return forPjl ? customPjlText(value) : customString(value);
    }
    default:
      return "";
  }
}

std::string textWithValues(CoreFeatureSet& set, const CustomPlan& plan, const std::string& command,
                           bool forPjl) {
  std::vector<NumberedValue> values;
  std::vector<std::string> lines;
  for (const CustomValue& value : plan.values) {
    values.push_back({value.order, valueOf(set, value, forPjl)});
    lines.push_back(values.back().text);
  }
  return forPjl ? pjlWithValues(command, values) : postScriptWithValues(command, lines);
}

}  // namespace

std::string customRoutineName(long number) {
  return std::string("EmitPpdCustom") + (number < 10 ? "0" : "") + std::to_string(number);
}

void writeCustomText(CoreFeatureSet& set, long number, std::string& output) {
  const std::string name = customRoutineName(number);
  CoreFeature* feature = set.FindFeatureInFeatureList("AddPSCallbackRoutine", name);
  const bool forPjl = feature == nullptr;
  if (forPjl) feature = set.FindFeatureInFeatureList("AddPJLCallbackRoutine", name);
  if (feature == nullptr) return;
  const auto plan = readPlan(optionText(*feature, "TESKTicketCommand"));
  if (!plan || !isChosen(set, *plan)) return;
  const std::string command = optionText(*feature, forPjl ? "PJLCommand" : "PSCommand");
  output += textWithValues(set, *plan, command, forPjl);
}

}  // namespace driver_feature::ppd

// NOLINTBEGIN(cppcoreguidelines-macro-usage, bugprone-macro-parentheses): names are pasted.
#define ROUTINE(tens, ones)                                                       \
  DRIVER_FEATURE_EXPORT void EmitPpdCustom##tens##ones(DriverFeatureSet* set,     \
                                                       std::string& output);      \
  void EmitPpdCustom##tens##ones(DriverFeatureSet* set, std::string& output) {    \
    driver_feature::ppd::writeCustomText(*reinterpret_cast<CoreFeatureSet*>(set), \
                                         (tens)*10 + (ones), output);             \
  }
#define TEN_ROUTINES(tens) \
  ROUTINE(tens, 0)         \
  ROUTINE(tens, 1)         \
  ROUTINE(tens, 2)         \
  ROUTINE(tens, 3)         \
  ROUTINE(tens, 4)         \
  ROUTINE(tens, 5)         \
  ROUTINE(tens, 6)         \
  ROUTINE(tens, 7)         \
  ROUTINE(tens, 8)         \
  ROUTINE(tens, 9)

extern "C" {

TEN_ROUTINES(0)
TEN_ROUTINES(1)
TEN_ROUTINES(2)
TEN_ROUTINES(3)
TEN_ROUTINES(4)
TEN_ROUTINES(5)
TEN_ROUTINES(6)
TEN_ROUTINES(7)
TEN_ROUTINES(8)
TEN_ROUTINES(9)

}  // extern "C"

#undef TEN_ROUTINES
#undef ROUTINE
// NOLINTEND(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)

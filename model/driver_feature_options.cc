// The option list of a feature.

#include <algorithm>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "model/messages.h"

using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::logFixed;

bool DriverFeature::addOptionToFeature(CoreOption* option) {
  if (option == nullptr) {
    logComposed(Level::kMisuse,
                "DriverFeature::addOptionToFeature() - Attempt to add null feature option to "
                "feature for feature \"{}\".",
                name_);
    return false;
  }
  if (!isMultiSelect()) {
    std::string optionName;
    option->getOptionProperty(std::string("Name"), optionName);
    logComposed(Level::kMisuse,
                "DriverFeature::addOptionToFeature() - Attempt to add feature option \"{}\" to "
                "non-combobox feature \"{}\".",
                optionName, name_);
    return false;
  }
  ++changeCount_;
  options_.emplace_hint(options_.end(), static_cast<int>(options_.size()), option);
  return true;
}

int DriverFeature::getFeatureOptionCount() {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::getFeatureOptionCount() - Attempt to get feature option count of "
                "non-combobox feature \"{}\".",
                name_);
    return -1;
  }
  return static_cast<int>(options_.size());
}

int DriverFeature::fetchNumberOfOptions() {
  if (!isMultiSelect()) {
    // Required: "nubmer"; log readers know the line by it.
    logComposed(Level::kMisuse,
                "DriverFeature::fetchNumberOfOptions() - Attempt to fetch nubmer of feature "
                "options of non-combobox feature \"{}\".",
                name_);
    return 0;
  }
  return static_cast<int>(options_.size());
}

int DriverFeature::fetchOptionIndexByName(const std::string& name) {
  return fetchOptionIndexByName(std::string("Name"), name);
}

int DriverFeature::fetchOptionIndexByName(const std::string& attribute, const std::string& value) {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchOptionIndexByName() - Attempt to get option index of "
                "non-combobox feature \"{}\".",
                name_);
    return -1;
  }
  // Required: the reads are not checked and share one text, so that an unknown
  // attribute with an empty value matches the first option.
  std::string text;
  for (const auto& [position, option] : options_) {
    option->getOptionProperty(attribute, text);
    if (text == value) return position;
  }
  return -1;
}

CoreOption* DriverFeature::fetchCurrentOption() {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchCurrentOption() - Attempt to fetch current feature option of "
                "non-combobox feature \"{}\".",
                name_);
    return nullptr;
  }
  return fetchOptionByIndex(currentInt_);
}

CoreOption* DriverFeature::fetchOptionByName(std::string name) {
  if (refusesOptionByName()) return nullptr;
  if (CoreOption* option = findOption(std::string("Name"), name)) return option;
  logComposed(Level::kWarning,
              "DriverFeature::fetchOptionByName() - Option \"{}\" of feature \"{}\" was not found.",
              name, name_);
  return nullptr;
}

CoreOption* DriverFeature::fetchOptionByName(const std::string& attribute,
                                             const std::string& value) {
  if (refusesOptionByName()) return nullptr;
  if (CoreOption* option = findOption(attribute, value)) return option;
  logComposed(Level::kWarning,
              "DriverFeature::fetchOptionByName() - Option with attribute \"{}\" = \"{}\" was not "
              "found.",
              attribute, value);
  return nullptr;
}

bool DriverFeature::refusesOptionByName() {
  if (isMultiSelect()) return false;
  logComposed(Level::kMisuse,
              "DriverFeature::fetchOptionByName() - Attempt to fetch feature option of "
              "non-combobox feature \"{}\".",
              name_);
  return true;
}

CoreOption* DriverFeature::findOption(const std::string& attribute, const std::string& value) {
  std::string text;
  for (const auto& [position, option] : options_) {
    if (option->getOptionProperty(attribute, text) && text == value) return option;
  }
  return nullptr;
}

CoreOption* DriverFeature::fetchOptionByIndex(int index) {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option of "
                "non-combobox feature \"{}\".",
                name_);
    return nullptr;
  }
  if (lastOption_ != nullptr && index == lastOptionPosition_) return lastOption_;
  const auto found = options_.find(index);
  if (found == options_.end()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option with index "
                "out of range for feature \"{}\".",
                name_);
    return nullptr;
  }
  lastOption_ = found->second;
  lastOptionPosition_ = index;
  return lastOption_;
}

bool DriverFeature::findNextAvailableOption(int* position) {
  const int count = static_cast<int>(options_.size());
  const int start = *position;
  // Positions outside the list hold no option and are not walked. From the
  // position behind the last option, every option is tried.
  const int first = start >= count ? (start == count ? 0 : count) : std::max(start + 1, 0);
  for (int i = first; i < count; ++i) {
    if (isAvailable(i)) {
      *position = i;
      return true;
    }
  }
  for (int i = 0; i < std::min(start, count); ++i) {
    if (isAvailable(i)) {
      *position = i;
      return true;
    }
  }
  logFixed(Level::kMisuse,
           "DriverFeatureOption::findNextAvailableOption() - No options are available!");
  return false;
}

bool DriverFeature::isAvailable(int position) {
  const auto found = options_.find(position);
  bool sensitive = false;
  return found != options_.end() &&
         found->second->getOptionProperty(std::string("Sensitivity"), &sensitive) && sensitive;
}

void DriverFeature::copyOptionNames(DriverFeature& source) {
  for (int i = 0; i < source.getFeatureOptionCount(); ++i) {
    CoreOption* option = source.fetchOptionByIndex(i);
    std::string name;
    if (option == nullptr || !option->getOptionProperty(std::string("Name"), name)) {
      logFixed(Level::kInformation,
               "DriverFeature(DriverFeature*) - Cannot get MultiSelect feature option name");
      return;
    }
    options_[i] = new DriverFeatureOption(name);
  }
}

// The option list of a feature.

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
                ownName());
    return false;
  }
  if (!isMultiSelect()) {
    std::string optionName;
    option->getOptionProperty(std::string("Name"), optionName);
    logComposed(Level::kMisuse,
                "DriverFeature::addOptionToFeature() - Attempt to add feature option \"{}\" to "
                "non-combobox feature \"{}\".",
                optionName, ownName());
    return false;
  }
  options_.add(option);
  return true;
}

int DriverFeature::getFeatureOptionCount() {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::getFeatureOptionCount() - Attempt to get feature option count of "
                "non-combobox feature \"{}\".",
                ownName());
    return -1;
  }
  return options_.size();
}

int DriverFeature::fetchNumberOfOptions() {
  if (!isMultiSelect()) {
    // Required: "nubmer"; log readers know the line by it.
    logComposed(Level::kMisuse,
                "DriverFeature::fetchNumberOfOptions() - Attempt to fetch nubmer of feature "
                "options of non-combobox feature \"{}\".",
                ownName());
    return 0;
  }
  return options_.size();
}

int DriverFeature::fetchOptionIndexByName(const std::string& name) {
  if (refusesOptionIndexByName()) return -1;
  return options_.findPosition(std::string("Name"), name);
}

int DriverFeature::fetchOptionIndexByName(const std::string& attribute, const std::string& value) {
  if (refusesOptionIndexByName()) return -1;
  return options_.findPosition(attribute, value);
}

bool DriverFeature::refusesOptionIndexByName() {
  if (isMultiSelect()) return false;
  logComposed(Level::kMisuse,
              "DriverFeature::fetchOptionIndexByName() - Attempt to get option index of "
              "non-combobox feature \"{}\".",
              ownName());
  return true;
}

CoreOption* DriverFeature::fetchCurrentOption() {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchCurrentOption() - Attempt to fetch current feature option of "
                "non-combobox feature \"{}\".",
                ownName());
    return nullptr;
  }
  return fetchOptionByIndex(currentInt_);
}

CoreOption* DriverFeature::fetchOptionByName(std::string name) {
  if (refusesOptionByName()) return nullptr;
  const int position = options_.findPosition(std::string("Name"), name);
  if (CoreOption* option = options_.at(position)) return option;
  logComposed(Level::kWarning,
              "DriverFeature::fetchOptionByName() - Option \"{}\" of feature \"{}\" was not found.",
              name, ownName());
  return nullptr;
}

CoreOption* DriverFeature::fetchOptionByName(const std::string& attribute,
                                             const std::string& value) {
  if (refusesOptionByName()) return nullptr;
  if (CoreOption* option = options_.findReadable(attribute, value)) return option;
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
              ownName());
  return true;
}

CoreOption* DriverFeature::fetchOptionByIndex(int index) {
  if (!isMultiSelect()) {
    logComposed(Level::kMisuse,
                "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option of "
                "non-combobox feature \"{}\".",
                ownName());
    return nullptr;
  }
  if (CoreOption* option = options_.at(index)) return option;
  logComposed(Level::kMisuse,
              "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option with index "
              "out of range for feature \"{}\".",
              ownName());
  return nullptr;
}

bool DriverFeature::findNextAvailableOption(int* position) {
  if (const auto next = options_.findNextAvailable(*position)) {
    *position = *next;
    return true;
  }
  logFixed(Level::kMisuse,
           "DriverFeatureOption::findNextAvailableOption() - No options are available!");
  return false;
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
    options_.add(new DriverFeatureOption(name));
  }
}

// Options, and the option lists of features.
#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

namespace {

std::string unrecognized(const std::string& operation, const RefOption& option,
                         const std::string& name) {
  return "DriverFeatureOption::" + operation + " - Unrecognized option property:  \"" + name +
         "\" for option \"" + option.texts.at("Name") + "\".";
}

}  // namespace

RefOption* ReferenceModel::newOption(const std::string& name) {
  ownedOptions_.push_back(std::make_unique<RefOption>());
  RefOption* made = ownedOptions_.back().get();
  for (const testing::OptionPropertyFacts& facts : testing::kOptionPropertyFacts) {
    if (facts.kind == testing::Kind::kText) made->texts[facts.name];
    if (facts.kind == testing::Kind::kBool) made->flags[facts.name] = true;
  }
  made->texts["Name"] = name;
  return made;
}

bool ReferenceModel::getOptionText(RefOption& option, const std::string& name, std::string& value) {
  if (!option.texts.contains(name)) {
    log(3, unrecognized("getOptionProperty(string&)", option, name));
    return false;
  }
  value = option.texts[name];
  return true;
}

bool ReferenceModel::getOptionBool(RefOption& option, const std::string& name, bool& value) {
  if (!option.flags.contains(name)) {
    log(3, unrecognized("getOptionProperty(bool*)", option, name));
    return false;
  }
  value = option.flags[name];
  return true;
}

bool ReferenceModel::setOptionText(RefOption& option, const std::string& name,
                                   const std::string& value) {
  if (!option.texts.contains(name)) {
    log(3, unrecognized("setOptionProperty(string)", option, name));
    return false;
  }
  option.texts[name] = value;
  return true;
}

bool ReferenceModel::setOptionBool(RefOption& option, const std::string& name, bool value) {
  if (!option.flags.contains(name)) {
    log(3, unrecognized("setOptionProperty(bool)", option, name));
    return false;
  }
  option.flags[name] = value;
  return true;
}

bool ReferenceModel::refusesOptions(RefObject& object, const std::string& text) {
  if (object.type == 1) return false;
  log(2, "DriverFeature::" + text + " non-combobox feature \"" + object.name() + "\".");
  return true;
}

int ReferenceModel::numberOfOptions(RefObject& object) {
  if (object.kind != RefClass::kFeature) return 0;
  if (refusesOptions(object,
                     "fetchNumberOfOptions() - Attempt to fetch nubmer of feature options of")) {
    return 0;
  }
  return static_cast<int>(object.options.size());
}

int ReferenceModel::optionCount(RefObject& feature) {
  if (refusesOptions(feature, "getFeatureOptionCount() - Attempt to get feature option count of")) {
    return -1;
  }
  return static_cast<int>(feature.options.size());
}

int ReferenceModel::optionIndexByName(RefObject& object, const std::string& name) {
  if (object.kind != RefClass::kFeature) return -1;
  if (refusesOptions(object, "fetchOptionIndexByName() - Attempt to get option index of")) {
    return -1;
  }
  int position = 0;
  for (RefOption* option : object.options) {
    if (option->texts["Name"] == name) return position;
    ++position;
  }
  return -1;
}

int ReferenceModel::optionIndexByAttribute(RefObject& feature, const std::string& name,
                                           const std::string& value) {
  if (refusesOptions(feature, "fetchOptionIndexByName() - Attempt to get option index of")) {
    return -1;
  }
  std::string text;
  int position = 0;
  for (RefOption* option : feature.options) {
    getOptionText(*option, name, text);
    if (text == value) return position;
    ++position;
  }
  return -1;
}

RefOption* ReferenceModel::currentOption(RefObject& object) {
  if (object.kind != RefClass::kFeature) return nullptr;
  if (refusesOptions(object, "fetchCurrentOption() - Attempt to fetch current feature option of")) {
    return nullptr;
  }
  return optionByIndex(object, object.ints["CurrentIntValue"]);
}

RefOption* ReferenceModel::optionByAttribute(RefObject& object, const std::string& name,
                                             const std::string& value) {
  if (object.kind != RefClass::kFeature) return nullptr;
  if (refusesOptions(object, "fetchOptionByName() - Attempt to fetch feature option of")) {
    return nullptr;
  }
  for (RefOption* option : object.options) {
    std::string text;
    if (getOptionText(*option, name, text) && text == value) return option;
  }
  log(3, "DriverFeature::fetchOptionByName() - Option with attribute \"" + name + "\" = \"" +
             value + "\" was not found.");
  return nullptr;
}

RefOption* ReferenceModel::optionByName(RefObject& object, const std::string& name) {
  if (object.kind != RefClass::kFeature) return nullptr;
  if (refusesOptions(object, "fetchOptionByName() - Attempt to fetch feature option of")) {
    return nullptr;
  }
  for (RefOption* option : object.options) {
    if (option->texts["Name"] == name) return option;
  }
  log(3, "DriverFeature::fetchOptionByName() - Option \"" + name + "\" of feature \"" +
             object.name() + "\" was not found.");
  return nullptr;
}

RefOption* ReferenceModel::optionByIndex(RefObject& object, int index) {
  if (object.kind != RefClass::kFeature) return nullptr;
  if (refusesOptions(object, "fetchOptionByIndex() - Attempt to fetch feature option of")) {
    return nullptr;
  }
  if (index < 0 || index >= static_cast<int>(object.options.size())) {
    log(2,
        "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option with index out "
        "of range for feature \"" +
            object.name() + "\".");
    return nullptr;
  }
  return object.options[static_cast<std::size_t>(index)];
}

bool ReferenceModel::addOption(RefObject& feature, RefOption* option) {
  if (option == nullptr) {
    log(2,
        "DriverFeature::addOptionToFeature() - Attempt to add null feature option to feature "
        "for feature \"" +
            feature.name() + "\".");
    return false;
  }
  if (refusesOptions(feature, "addOptionToFeature() - Attempt to add feature option \"" +
                                  option->texts["Name"] + "\" to")) {
    return false;
  }
  feature.options.push_back(option);
  return true;
}

bool ReferenceModel::available(RefObject& feature, int position) {
  return feature.options[static_cast<std::size_t>(position)]->flags["Sensitivity"];
}

bool ReferenceModel::nextAvailable(RefObject& feature, int& position) {
  const int count = static_cast<int>(feature.options.size());
  const int start = position;
  const auto pass = [&](auto isTested) {
    for (int i = 0; i < count; ++i) {
      if (!isTested(i) || !available(feature, i)) continue;
      position = i;
      return true;
    }
    return false;
  };
  if (pass([&](int i) { return start == count || i > start; })) return true;
  if (pass([&](int i) { return i < start; })) return true;
  log(2, "DriverFeatureOption::findNextAvailableOption() - No options are available!");
  return false;
}

bool ReferenceModel::applyConstraint(RefObject& feature, const std::string& optionName, long id,
                                     bool hide) {
  if (id < 0) return false;
  RefOption* option = optionByName(feature, optionName);
  if (option == nullptr) return false;
  if (currentOption(feature) == option) {
    int position = feature.ints["CurrentIntValue"];
    if (!nextAvailable(feature, position)) return false;
    setInt(feature, "CurrentIntValue", position, false);
  }
  option->constraints.insert(id);
  option->flags["Sensitivity"] = false;
  if (hide) option->flags["Visibility"] = false;
  return true;
}

}  // namespace driver_feature::operations

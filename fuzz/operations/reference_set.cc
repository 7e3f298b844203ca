// The set, and the exported functions on it.
#include "fuzz/operations/reference_model.h"

namespace driver_feature::operations {

int ReferenceModel::fileFeature(const std::string& name, RefObject* feature) {
  if (name.empty() || feature == nullptr) return 0;
  features_[name] = feature;
  return 1;
}

int ReferenceModel::fileStaticGroup(RefObject* group) {
  if (group == nullptr) return 0;
  staticGroups_.push_back(group);
  return 1;
}

int ReferenceModel::fileDynamicGroup(RefObject* group) {
  if (group == nullptr) return 0;
  dynamicGroups_.push_back(group);
  return 1;
}

RefObject* ReferenceModel::featureByIndex(int index) {
  if (index < 0 || index >= featureCount()) return nullptr;
  auto entry = features_.begin();
  for (int i = 0; i < index; ++i) ++entry;
  return entry->second;
}

RefObject* ReferenceModel::staticGroupByIndex(int index) {
  if (index < 0 || index >= static_cast<int>(staticGroups_.size())) return nullptr;
  return staticGroups_[static_cast<std::size_t>(index)];
}

RefObject* ReferenceModel::find(const std::string& name) {
  if (features_.contains(name)) return features_[name];
  for (RefObject* group : staticGroups_) {
    if (group->name() == name) return group;
  }
  for (RefObject* group : dynamicGroups_) {
    if (group->name() == name) return group;
  }
  log(3, "FindFeatureInFeatureList() - Did not find feature \"" + name + "\".");
  return nullptr;
}

RefObject* ReferenceModel::findByAttribute(const std::string& attribute, const std::string& value) {
  std::string text;
  for (const auto& [name, feature] : features_) {
    getText(*feature, attribute, text);
    if (text == value) return feature;
  }
  // Groups are compared with the attribute's own name.
  for (RefObject* group : staticGroups_) {
    getText(*group, attribute, text);
    if (text == attribute) return group;
  }
  for (RefObject* group : dynamicGroups_) {
    getText(*group, attribute, text);
    if (text == attribute) return group;
  }
  log(4, "FindFeatureInFeatureList() - Couldn't find feature with attribute \"" + value + "\".");
  return nullptr;
}

void ReferenceModel::restoreDefaults() {
  for (int i = 0; i < featureCount(); ++i) {
    RefObject& feature = *featureByIndex(i);
    if (feature.type == 3) {
      const std::string value = feature.texts["DefaultTextValue"];
      setText(feature, "CurrentTextValue", value, true);
    } else if (feature.type == 1 || feature.type == 2) {
      setInt(feature, "CurrentIntValue", feature.ints["DefaultIntValue"], true);
    } else if (feature.type == 4) {
      setFloat(feature, "CurrentFloatValue", feature.floats["DefaultFloatValue"], true);
    }
  }
  callUpdate();
}

RefObject* ReferenceModel::attach(const std::string& target) {
  RefObject* found = find(target);
  if (found == nullptr) log(2, "Couldn't attach to feature:  " + target);
  return found;
}

int ReferenceModel::functionGet(const std::string& target, const std::string& name, int& value) {
  RefObject* object = attach(target);
  return object != nullptr && getInt(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionGet(const std::string& target, const std::string& name, float& value) {
  RefObject* object = attach(target);
  return object != nullptr && getFloat(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionGet(const std::string& target, const std::string& name, bool& value) {
  RefObject* object = attach(target);
  return object != nullptr && getBool(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionGet(const std::string& target, const std::string& name,
                                std::string& value) {
  RefObject* object = attach(target);
  return object != nullptr && getText(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionSet(const std::string& target, const std::string& name, int value) {
  RefObject* object = attach(target);
  return object != nullptr && setInt(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionSet(const std::string& target, const std::string& name, float value) {
  RefObject* object = attach(target);
  return object != nullptr && setFloat(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionSet(const std::string& target, const std::string& name, bool value) {
  RefObject* object = attach(target);
  return object != nullptr && setBool(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::functionSet(const std::string& target, const std::string& name,
                                const std::string& value) {
  RefObject* object = attach(target);
  return object != nullptr && setText(*object, name.c_str(), value) ? 1 : 0;
}

int ReferenceModel::instOptHandler() {
  if (!loadRegistered_) return 1;
  ticketLoading_ = true;
  if (host_.load(1) != 0) host_.print("Queue Defaults Load Error\n");
  ticketLoading_ = false;
  return 1;
}

int ReferenceModel::jobTicketHandler() {
  if (!loadRegistered_) return 1;
  ticketLoading_ = true;
  host_.load(0);
  ticketLoading_ = false;
  callUpdate();
  return 1;
}

void ReferenceModel::transfer(const Record& names, const std::string& from, const std::string& to,
                              const std::string& operation) {
  std::string text;
  int number = 0;
  float real = 0;
  for (const auto& [name, unused] : names) {
    RefObject* object = find(name);
    if (object == nullptr) {
      log(2, operation + "() - Cannot find feature \"" + name + "\"");
      continue;
    }
    const int type = object->type;
    if (type == 3) {
      getText(*object, from + "TextValue", text);
      setText(*object, to + "TextValue", text, false);
    } else if (type == 4) {
      getFloat(*object, from + "FloatValue", real);
      setFloat(*object, to + "FloatValue", real, false);
    } else if (type == 1 || type == 2) {
      getInt(*object, from + "IntValue", number);
      setInt(*object, to + "IntValue", number, false);
    }
  }
}

void ReferenceModel::save(const Record& names) {
  transfer(names, "Current", "Original", "SaveCurrentFeatureValues");
}

void ReferenceModel::restore(const Record& names) {
  transfer(names, "Original", "Current", "RestoreOriginalFeatureValues");
}

}  // namespace driver_feature::operations

// The set, and the exported functions on one property.
#include "frame/exports.h"
#include "frame/master_set.h"
#include "fuzz/operations/library_model.h"

namespace driver_feature::operations {

int LibraryModel::fileFeature(const std::string& name, DriverFeature* feature) {
  return masterSet().addFeatureToFeatureList(name, feature);
}

int LibraryModel::fileStaticGroup(DriverFeatureStaticGroup* group) {
  return masterSet().addStaticGroupToFeatureList(group);
}

int LibraryModel::fileDynamicGroup(DriverFeatureDynamicGroup* group) {
  return masterSet().addDynamicGroupToFeatureList(group);
}

int LibraryModel::featureCount() {
  return masterSet().fetchNumberOfFeatures();
}

CoreFeature* LibraryModel::featureByIndex(int index) {
  return masterSet().fetchFeatureByIndex(index);
}

CoreFeature* LibraryModel::staticGroupByIndex(int index) {
  return masterSet().fetchStaticGroupByIndex(index);
}

CoreFeature* LibraryModel::find(const std::string& name) {
  return masterSet().FindFeatureInFeatureList(name);
}

CoreFeature* LibraryModel::findByAttribute(const std::string& attribute, const std::string& value) {
  return masterSet().FindFeatureInFeatureList(attribute, value);
}

void* LibraryModel::createOption(const std::string& feature, const std::string& option,
                                 int number) {
  return masterSet().CreateOptionForFeature(feature, option, number);
}

void LibraryModel::restoreDefaults() {
  masterSet().restoreDefaultFeatureValues();
}

int LibraryModel::functionGet(std::string target, const std::string& name, int& value) {
  return GetFeatureIntValue(target, name.c_str(), &value);
}

int LibraryModel::functionGet(std::string target, const std::string& name, float& value) {
  return GetFeatureFloatValue(target, name.c_str(), &value);
}

int LibraryModel::functionGet(std::string target, const std::string& name, bool& value) {
  return GetFeatureBoolValue(target, name.c_str(), &value);
}

int LibraryModel::functionGet(std::string target, const std::string& name, std::string& value) {
  return GetFeatureTextValue(target, name.c_str(), value);
}

int LibraryModel::functionSet(std::string target, const std::string& name, int value) {
  return SetFeatureIntValue(target, name.c_str(), value);
}

int LibraryModel::functionSet(std::string target, const std::string& name, float value) {
  return SetFeatureFloatValue(target, name.c_str(), value);
}

int LibraryModel::functionSet(std::string target, const std::string& name, bool value) {
  return SetFeatureBoolValue(target, name.c_str(), value);
}

int LibraryModel::functionSet(std::string target, const std::string& name,
                              const std::string& value) {
  return SetFeatureTextValue(target, name.c_str(), value);
}

}  // namespace driver_feature::operations

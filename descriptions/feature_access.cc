#include "descriptions/feature_access.h"

#include <dlfcn.h>

namespace driver_feature {

namespace {

using MasterSetRoutine = void* (*)();

// A host that loads the feature library as a plug-in keeps its symbols to
// itself, so they are looked for in the library that is already loaded.
MasterSetRoutine findMasterSetRoutine() {
  void* routine = ::dlsym(RTLD_DEFAULT, "GetMasterFeatureList");
  if (routine == nullptr) {
    void* library = ::dlopen("libDriverFeature.so", RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) routine = ::dlsym(library, "GetMasterFeatureList");
  }
  return reinterpret_cast<MasterSetRoutine>(routine);
}

void releaseOption(CoreOption& coreOption, long id) {
  auto& option = static_cast<IntermediateCoreOption&>(coreOption);
  option.removeConstraint(id);
  if (option.isConstraintSetEmpty()) option.setOptionProperty(std::string("Sensitivity"), true);
}

}  // namespace

// The set's interface is its first and only base, so the address is the same.
Features::Features(DriverFeatureSet* set) : set_(reinterpret_cast<CoreFeatureSet*>(set)) {}

Features Features::ofMasterSet() {
  static const MasterSetRoutine kRoutine = findMasterSetRoutine();
  return Features(kRoutine != nullptr ? static_cast<CoreFeatureSet*>(kRoutine()) : nullptr);
}

IntermediateCoreFeature* Features::find(const std::string& name) const {
  if (set_ == nullptr) return nullptr;
  CoreFeature* found = set_->FindFeatureInFeatureList(name);
  // The codes from 6 on belong to groups, which have another interface.
  if (found == nullptr || found->getFeatureType() > 5) return nullptr;
  return static_cast<IntermediateCoreFeature*>(found);
}

IntermediateDynamicFeatureGroup* Features::findRecords(const std::string& group) const {
  CoreFeature* found = set_ != nullptr ? set_->FindFeatureInFeatureList(group) : nullptr;
  if (found == nullptr || found->getFeatureType() != 8) return nullptr;
  return static_cast<IntermediateDynamicFeatureGroup*>(found);
}

std::string Features::text(const std::string& name) const {
  std::string value;
  if (auto* feature = find(name)) feature->getFeatureProperty(std::string("ValueString"), value);
  return value;
}

int Features::whole(const std::string& name) const {
  int value = 0;
  if (auto* feature = find(name)) {
    feature->getFeatureProperty(std::string("CurrentIntValue"), &value);
  }
  return value;
}

float Features::decimal(const std::string& name) const {
  float value = 0;
  if (auto* feature = find(name)) {
    feature->getFeatureProperty(std::string("CurrentFloatValue"), &value);
  }
  return value;
}

std::string Features::optionText(const std::string& name, const std::string& property) const {
  std::string value;
  auto* feature = find(name);
  CoreOption* option = feature != nullptr ? feature->fetchCurrentOption() : nullptr;
  if (option != nullptr) option->getOptionProperty(property, value);
  return value;
}

void Features::setAvailable(const std::string& name, bool available) const {
  if (auto* feature = find(name)) {
    feature->setFeatureProperty(std::string("Sensitivity"), available);
  }
}

void Features::constrainOptions(const std::string& name, long id, bool constrained) const {
  auto* feature = find(name);
  if (feature == nullptr) return;
  const int count = feature->fetchNumberOfOptions();
  for (int position = 1; position < count; ++position) {
    CoreOption* option = feature->fetchOptionByIndex(position);
    if (constrained) {
      std::string optionName;
      option->getOptionProperty(std::string("Name"), optionName);
      feature->applyOptionConstraint(optionName, id, false);
    } else {
      releaseOption(*option, id);
    }
  }
}

}  // namespace driver_feature

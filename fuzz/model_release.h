// Frees the memory of a model, which the library itself never does: a process
// reads one description. A fuzzer reads thousands.
#ifndef FUZZ_MODEL_RELEASE_H_
#define FUZZ_MODEL_RELEASE_H_

#include "frame/exports.h"
#include "frame/master_set.h"
#include "frame/state.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"
#include "model/notification.h"

namespace driver_feature::fuzz {

template <class Object>
void release(Object* object) {
  // The model's classes have plain destructors and are deleted as what they
  // were made as.
  object->Object::~Object();
  ::operator delete(object);
}

inline void releaseFeature(DriverFeature* feature) {
  // Only a list returns its options.
  feature->setFeatureProperty(std::string("FeatureType"), 1);
  const int count = feature->getFeatureOptionCount();
  for (int i = 0; i < count; ++i) {
    auto* option = static_cast<DriverFeatureOption*>(feature->fetchOptionByIndex(i));
    option->DriverFeatureOption::~DriverFeatureOption();
  }
  // The loader makes all of them in one piece of memory.
  if (count > 0) ::operator delete(feature->fetchOptionByIndex(0));
  release(feature);
}

// Releases the master set with everything that it lists, and puts the library
// into the state in which it was loaded. Features that another one of the same
// name has replaced stay.
inline void releaseModel() {
  DriverFeatureSet& set = masterSet();
  const int features = set.fetchNumberOfFeatures();
  for (int i = 0; i < features; ++i) {
    releaseFeature(set.fetchFeatureByIndex(features - 1 - i));
  }
  for (int i = 0; i < set.list().staticGroupCount(); ++i) release(set.fetchStaticGroupByIndex(i));
  for (int i = 0; i < set.list().dynamicGroupCount(); ++i) {
    release(set.fetchDynamicGroupByIndex(i));
  }
  release(&set);
  libraryState() = {};
  notification() = {};
}

}  // namespace driver_feature::fuzz

#endif  // FUZZ_MODEL_RELEASE_H_

// Short ways to make objects of the model for a test. What they make lives as
// long as the builder.
#ifndef TESTS_SUPPORT_MODEL_BUILDER_H_
#define TESTS_SUPPORT_MODEL_BUILDER_H_

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "frame/master_set.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"

namespace driver_feature::testing {

using Texts = std::initializer_list<std::pair<const char*, const char*>>;

// Objects of exactly one class of the model. They have no virtual destructor,
// because the library deletes none; what is destroyed here is of that class.
template <class Object>
class Objects {
 public:
  template <class... Arguments>
  Object& emplace_back(Arguments&&... arguments) {
    objects_.emplace_back(new Object(std::forward<Arguments>(arguments)...));
    return *objects_.back();
  }

 private:
  struct Destroy {
    void operator()(Object* object) const {
      object->Object::~Object();
      ::operator delete(object);
    }
  };
  std::vector<std::unique_ptr<Object, Destroy>> objects_;
};

class ModelBuilder {
 public:
  // A feature of a type with text properties, filed in the master set.
  DriverFeature& feature(const std::string& name, int type, Texts texts = {}) {
    DriverFeature& feature = features_.emplace_back(name);
    feature.setFeaturePropertyWithConstraintControl(std::string("FeatureType"), type, true);
    setTexts(feature, texts);
    masterSet().addFeatureToFeatureList(name, &feature);
    return feature;
  }

  // An option with text properties, at the end of a feature's list.
  DriverFeatureOption& option(DriverFeature& feature, const std::string& name, Texts texts = {}) {
    DriverFeatureOption& option = options_.emplace_back(name);
    for (const auto& [property, value] : texts) {
      option.setOptionProperty(std::string(property), std::string(value));
    }
    feature.addOptionToFeature(&option);
    return option;
  }

  // A static group with text properties and members, filed in the master set.
  DriverFeatureStaticGroup& group(const std::string& name, Texts texts,
                                  std::initializer_list<CoreFeature*> members = {}) {
    DriverFeatureStaticGroup& group = staticGroups_.emplace_back(name);
    setTexts(group, texts);
    for (CoreFeature* member : members) group.addFeatureToGroup(member);
    masterSet().addStaticGroupToFeatureList(&group);
    return group;
  }

  DriverFeatureDynamicGroup& dynamicGroup(const std::string& name, Texts texts = {}) {
    DriverFeatureDynamicGroup& group = dynamicGroups_.emplace_back(name);
    setTexts(group, texts);
    masterSet().addDynamicGroupToFeatureList(&group);
    return group;
  }

 private:
  static void setTexts(CoreFeature& object, Texts texts) {
    for (const auto& [property, value] : texts) {
      object.setFeatureProperty(std::string(property), std::string(value));
    }
  }

  Objects<DriverFeature> features_;
  Objects<DriverFeatureOption> options_;
  Objects<DriverFeatureStaticGroup> staticGroups_;
  Objects<DriverFeatureDynamicGroup> dynamicGroups_;
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_MODEL_BUILDER_H_

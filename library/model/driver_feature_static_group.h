// Features and nested static groups that are written out together, as one
// command, and found by one name. Also the shape and the records of a dynamic
// group.
#ifndef MODEL_DRIVER_FEATURE_STATIC_GROUP_H_
#define MODEL_DRIVER_FEATURE_STATIC_GROUP_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/core_feature_group.h"
#include "model/own_names.h"
#include "model/property_store.h"
#include "model/vocabulary.h"

// A group has no value and does not notify. Unknown text properties are
// refused without a log line, all others with a level 3 line. Groups are made
// with new and never freed.
class DriverFeatureStaticGroup : public IntermediateStaticFeatureGroup {
 public:
  DriverFeatureStaticGroup() = default;
  explicit DriverFeatureStaticGroup(const std::string& name);
  DriverFeatureStaticGroup(const DriverFeatureStaticGroup&) = delete;
  DriverFeatureStaticGroup& operator=(const DriverFeatureStaticGroup&) = delete;

  bool setFeatureProperty(const std::string& name, const std::string& value) override;
  bool setFeatureProperty(const std::string& name, int value) override;
  bool setFeatureProperty(const std::string& name, float value) override;
  bool setFeatureProperty(const std::string& name, bool value) override;
  bool getFeatureProperty(const std::string& name, std::string& value) override;
  bool getFeatureProperty(const std::string& name, int* value) override;
  bool getFeatureProperty(const std::string& name, bool* value) override;
  bool getFeatureProperty(const std::string& name, float* value) override;
  int getFeatureType() override;
  int fetchNumberOfFeaturesInGroup() override;
  CoreFeature* fetchFeatureInGroupByIndex(unsigned index) override;

  // Appends a member and sets its "FeatureInGroup". Returns false for null,
  // and if the member rejects that property; it is appended regardless. Keeps
  // the pointer; never frees it. A feature may be in the list twice.
  bool addFeatureToGroup(CoreFeature* member);

  // The first member of that name, or null.
  CoreFeature* fetchFeatureInGroupByName(const std::string& name);

  // As DriverFeature::text().
  std::string_view text(driver_feature::Property property) const {
    return kept_.text(static_cast<std::size_t>(property));
  }

 private:
  struct Properties;

  std::string_view ownName() const { return text(driver_feature::Property::kName); }
  std::optional<int> findAmongOwn(const std::string& name);

  bool inGroup_ = false;
  int type_ = driver_feature::kStaticGroup;
  driver_feature::PropertyStore kept_;
  std::vector<CoreFeature*> members_;
  driver_feature::OwnNames names_;
};

#endif  // MODEL_DRIVER_FEATURE_STATIC_GROUP_H_

// How the routines read and change features.
#ifndef DESCRIPTIONS_FEATURE_ACCESS_H_
#define DESCRIPTIONS_FEATURE_ACCESS_H_

#include <string>

#include "model/core_feature.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"

class DriverFeatureSet;  // A CoreFeatureSet, its only base.

namespace driver_feature {

// The features of one set. Values of a feature that is not there are empty
// or 0.
class Features {
 public:
  // The set that an output routine is handed.
  explicit Features(DriverFeatureSet* set);

  // The master set, for the routines that are handed none; an object without
  // any feature when no feature library is loaded.
  static Features ofMasterSet();

  IntermediateCoreFeature* find(const std::string& name) const;  // Null when there is none.

  IntermediateDynamicFeatureGroup* findRecords(const std::string& group) const;  // Or null.

  std::string text(const std::string& name) const;  // The current value as text.
  int whole(const std::string& name) const;
  float decimal(const std::string& name) const;
  // A property of the current option of a "MultiSelect" feature.
  std::string optionText(const std::string& name, const std::string& property) const;

  void setAvailable(const std::string& name, bool available) const;

  // Makes every option but the first unavailable on behalf of the constraint
  // `id`, or takes that back. A current option that becomes unavailable gives
  // way to one that is available. An option becomes available again when no
  // constraint is left.
  void constrainOptions(const std::string& name, long id, bool constrained) const;

 private:
  explicit Features(CoreFeatureSet* set) : set_(set) {}

  CoreFeatureSet* set_;
};

}  // namespace driver_feature

#endif  // DESCRIPTIONS_FEATURE_ACCESS_H_

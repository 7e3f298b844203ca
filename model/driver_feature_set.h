// The master list of a driver's features and groups. Every look-up by name
// goes through it, and it writes the whole model out.
#ifndef MODEL_DRIVER_FEATURE_SET_H_
#define MODEL_DRIVER_FEATURE_SET_H_

#include <map>
#include <string>
#include <vector>

#include "model/core_feature_set.h"
#include "model/feature_index.h"

class DriverFeatureDynamicGroup;
class DriverFeatureStaticGroup;

// Holds plain pointers to what the loader has made and deletes none of it.
// Never holds null or a feature without a name. Nothing is ever removed.
class DriverFeatureSet : public CoreFeatureSet {
 public:
  DriverFeatureSet() = default;
  DriverFeatureSet(const DriverFeatureSet&) = delete;
  DriverFeatureSet& operator=(const DriverFeatureSet&) = delete;

  __attribute__((visibility("default"))) void dumpFeatureListValues() override;
  int fetchNumberOfFeatures() override;
  DriverFeature* fetchFeatureByIndex(int index) override;
  CoreFeature* FindFeatureInFeatureList(const std::string& name) override;
  CoreFeature* FindFeatureInFeatureList(const std::string& attribute,
                                        const std::string& value) override;
  __attribute__((visibility("default"))) DriverFeatureOption* CreateOptionForFeature(
      const std::string& featureName, const std::string& optionName, int number) override;
  void serialize(std::string& output, int pdlType, bool includeInstOpt, const char* ticketArgument1,
                 const char* ticketArgument2) override;
  void restoreDefaultFeatureValues() override;

  // Files a feature under `name`, in place of an earlier one of that name. 0
  // for an empty name or null, else 1.
  int addFeatureToFeatureList(const std::string& name, DriverFeature* feature);

  // Append a group. 0 for null, else 1.
  int addStaticGroupToFeatureList(DriverFeatureStaticGroup* group);
  int addDynamicGroupToFeatureList(DriverFeatureDynamicGroup* group);

  // Makes features be found by name in a time that hardly grows with their
  // number, also those that are added later. For the end of a load: memory is
  // asked for here, and not at a look-up.
  void indexNames() { index_.make(features_); }

  int fetchNumberOfStaticGroups() const;
  int fetchNumberOfDynamicGroups() const;

  // The group at a position counted from 0 in order of addition, or null.
  DriverFeatureStaticGroup* fetchStaticGroupByIndex(int index);
  DriverFeatureDynamicGroup* fetchDynamicGroupByIndex(int index);

  // The address of the host's routine of that name, or null, in silence.
  void* fetchCallbackRoutine(const std::string& routineName);

  using Features = std::map<std::string, DriverFeature*>;

  // What the set lists, for whoever takes back a load that has failed.
  struct Contents {
    Features features;
    std::vector<DriverFeatureStaticGroup*> staticGroups;
    std::vector<DriverFeatureDynamicGroup*> dynamicGroups;
  };
  Contents copyContents() const;
  void swapContents(Contents& contents) noexcept;

 private:
  // The entry at a position that is in the list.
  Features::const_iterator featureAt(int index);

  Features features_;
  std::vector<DriverFeatureStaticGroup*> staticGroups_;
  std::vector<DriverFeatureDynamicGroup*> dynamicGroups_;

  driver_feature::FeatureIndex index_;  // Of features_.

  // The entry that was last fetched by its position, so that a walk over all
  // positions takes one step for each instead of starting anew. -1: there is
  // none since the list has grown.
  Features::const_iterator lastFetched_;
  int lastFetchedIndex_ = -1;
};

#endif  // MODEL_DRIVER_FEATURE_SET_H_

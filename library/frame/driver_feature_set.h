// The master list of a driver's features and groups. Every look-up by name
// goes through it, and it writes the whole model out.
#ifndef FRAME_DRIVER_FEATURE_SET_H_
#define FRAME_DRIVER_FEATURE_SET_H_

#include <optional>
#include <string>

#include "model/core_feature_set.h"
#include "model/feature_list.h"
#include "model/own_names.h"

// Holds plain pointers to what the loader has made and deletes none of it.
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

  // The group at a position counted from 0 in order of addition, or null.
  DriverFeatureStaticGroup* fetchStaticGroupByIndex(int index);
  DriverFeatureDynamicGroup* fetchDynamicGroupByIndex(int index);

  // The address of the host's routine of that name, or null, without a log line.
  void* fetchCallbackRoutine(const std::string& routineName);

  // All features and groups, for the loader and the outputs.
  driver_feature::FeatureList& list() { return list_; }

 private:
  CoreFeature* findGroup(const std::string& name);
  std::optional<CoreFeature*> findOwnGroup(const std::string& name);
  CoreFeature* findStaticGroup(const std::string& attribute, const std::string& wanted,
                               std::string& text);
  CoreFeature* findDynamicGroup(const std::string& attribute, const std::string& wanted,
                                std::string& text);

  driver_feature::FeatureList list_;
  driver_feature::OwnNames staticGroupNames_;
  driver_feature::OwnNames dynamicGroupNames_;
};

#endif  // FRAME_DRIVER_FEATURE_SET_H_

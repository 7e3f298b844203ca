// The cost of restoring the defaults, and of saving and restoring the values of
// all features.

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "frame/exports.h"

#include "AttributeMap.h"

namespace driver_feature::bench {

namespace {

Step onAllNames(int size, void (*function)(AttributeMap&)) {
  useModel("typed", size);
  AttributeMap names;
  for (int i = 0; i < size; ++i) names[featureName(i)];
  return {.run = [names, function]() mutable { function(names); }, .overAll = true};
}

}  // namespace

void addRestoring(Operations& operations) {
  operations.push_back({"restore defaults", kFeatureCounts, [](int size) {
                          DriverFeatureSet& set = useModel("typed", size);
                          return Step{.run = [&set] { set.restoreDefaultFeatureValues(); },
                                      .overAll = true};
                        }});
  operations.push_back({"save values", kFeatureCounts,
                        [](int size) { return onAllNames(size, SaveCurrentFeatureValues); }});
  operations.push_back({"restore values", kFeatureCounts,
                        [](int size) { return onAllNames(size, RestoreOriginalFeatureValues); }});
}

}  // namespace driver_feature::bench

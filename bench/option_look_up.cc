// The cost of finding an option of a feature, by name and by position.

#include <benchmark/benchmark.h>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

namespace {

CoreFeature& middleFeature(int size) {
  DriverFeatureSet& set = useModel(kPSCarrier.kind, size);
  return *set.FindFeatureInFeatureList(featureName(size / 2));
}

}  // namespace

void addOptionLookUp(Operations& operations) {
  operations.push_back({"option by name", kFeatureCounts, [](int size) {
                          CoreFeature& feature = middleFeature(size);
                          return Step{[&feature, name = choiceName(kChoices - 1)] {
                            benchmark::DoNotOptimize(feature.fetchOptionByName(name));
                          }};
                        }});
  operations.push_back({"option by position", kFeatureCounts, [](int size) {
                          CoreFeature& feature = middleFeature(size);
                          return Step{[&feature] {
                            benchmark::DoNotOptimize(feature.fetchOptionByIndex(kChoices - 1));
                          }};
                        }});
}

}  // namespace driver_feature::bench

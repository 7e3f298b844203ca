// The cost of a change that runs the feature's own routine and the host's
// update callback.

#include <cstdlib>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

void addNotification(Operations& operations) {
  operations.push_back(
      {"notify", kFeatureCounts, [](int size) {
         DriverFeatureSet& set = useModel("typed", size);
         CoreFeature& feature = *set.FindFeatureInFeatureList(featureName(0));
         return Step{[&feature, property = std::string("CurrentIntValue"), value = 100]() mutable {
           const Calls before = calls;
           feature.setFeatureProperty(property, ++value);
           if (calls.changes == before.changes || calls.updates == before.updates) std::abort();
         }};
       }});
}

}  // namespace driver_feature::bench

// What does a description cost to load: read and built, and built alone.

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

void addLoading(Operations& operations) {
  operations.push_back({"load", kFeatureCounts, [](int size) {
                          return Step{.run =
                                          [path = modelPath(kPSCarrier.kind, size)] {
                                            startEmptySet();
                                            build(*readModel(path));
                                          },
                                      .after = deleteSet};
                        }});
  operations.push_back({"build", kFeatureCounts, [](int size) {
                          const std::shared_ptr<XMLDocument> document =
                              readModel(modelPath(kPSCarrier.kind, size));
                          return Step{.run =
                                          [document] {
                                            startEmptySet();
                                            build(*document);
                                          },
                                      .after = deleteSet};
                        }});
}

}  // namespace driver_feature::bench

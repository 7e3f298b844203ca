// The cost of loading a description: reading and building it, and building
// alone.

#include <memory>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

namespace {

// The document is freed with the model: a host keeps it as long as it likes,
// and the peer's closing is not measured either.
Step loading(int size) {
  auto document = std::make_shared<std::unique_ptr<XMLDocument>>();
  return {.run =
              [document, path = modelPath(kPSCarrier.kind, size)] {
                startEmptySet();
                *document = readModel(path);
                build(**document);
              },
          .after =
              [document] {
                document->reset();
                deleteSet();
              }};
}

}  // namespace

void addLoading(Operations& operations) {
  operations.push_back({"load", kFeatureCounts, [](int size) { return loading(size); }});
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

// What does it cost to write everything out: as PostScript, as PJL, as a job
// ticket, and, as a floor, to copy the finished text once.

#include <benchmark/benchmark.h>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

namespace {

void addSerializationAs(Operations& operations, const char* name, const Carrier& carrier,
                        int type) {
  operations.push_back({name, kFeatureCounts, [&carrier, type](int size) {
                          DriverFeatureSet& set = useModel(carrier.kind, size);
                          return Step{.run =
                                          [&set, type, output = std::string()]() mutable {
                                            set.serialize(output, type, false, "", "");
                                            benchmark::DoNotOptimize(output.data());
                                          },
                                      .overAll = true};
                        }});
}

}  // namespace

void addSerialization(Operations& operations) {
  addSerializationAs(operations, "serialize PostScript", kPSCarrier, 1);
  addSerializationAs(operations, "serialize PJL", kPJLCarrier, 0);
  addSerializationAs(operations, "serialize ticket", kTicketCarrier, 2);
  operations.push_back({"copy the PostScript", kFeatureCounts, [](int size) {
                          return Step{[text = textOfModel(size), copy = std::string()]() mutable {
                            copy.assign(text.data(), text.size());
                            benchmark::DoNotOptimize(copy.data());
                          }};
                        }});
}

}  // namespace driver_feature::bench

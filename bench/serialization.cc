// The cost of writing everything: as PostScript, as PJL, as a job ticket, and,
// as a floor, to copy the finished text once. PostScript and PJL are written as
// a filter does, without a change, and as a user interface does, after a change
// of one feature.

#include <benchmark/benchmark.h>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "frame/exports.h"

namespace driver_feature::bench {

namespace {

void addSerializationAs(Operations& operations, const char* name, const std::string& kind,
                        int type) {
  operations.push_back({name, kFeatureCounts, [kind, type](int size) {
                          DriverFeatureSet& set = useModel(kind, size);
                          return Step{.run =
                                          [&set, type, output = std::string()]() mutable {
                                            makeTextsOld();
                                            set.serialize(output, type, false, "", "");
                                            benchmark::DoNotOptimize(output.data());
                                          },
                                      .overAll = true};
                        }});
}

void addSerializationAfterChange(Operations& operations, const char* name, const std::string& kind,
                                 int type) {
  operations.push_back(
      {name, kFeatureCounts, [kind, type](int size) {
         DriverFeatureSet& set = useModel(kind, size);
         return Step{.run =
                         [&set, type, names = NamesInTurn(size), output = std::string()]() mutable {
                           const int choice = names.rounds() % 2 == 0 ? 1 : 3;
                           SetFeatureTextValue(names.next(), "ValueString", choiceName(choice));
                           set.serialize(output, type, false, "", "");
                           benchmark::DoNotOptimize(output.data());
                         },
                     .overAll = true};
       }});
}

}  // namespace

void addSerialization(Operations& operations) {
  addSerializationAs(operations, "serialize PostScript", kPSCarrier.kind, 1);
  addSerializationAs(operations, "serialize PJL", kPJLCarrier.kind, 0);
  addSerializationAfterChange(operations, "change and serialize PostScript", kPSCarrier.kind, 1);
  addSerializationAfterChange(operations, "change and serialize PJL", kPJLCarrier.kind, 0);
  addSerializationAs(operations, "serialize ticket", kTicketCarrier.kind, 2);
  addSerializationAs(operations, "serialize numbers and texts", "typed", 1);
  operations.push_back({"copy the PostScript", kFeatureCounts, [](int size) {
                          return Step{[text = textOfModel(size), copy = std::string()]() mutable {
                            copy.assign(text.data(), text.size());
                            benchmark::DoNotOptimize(copy.data());
                          }};
                        }});
}

}  // namespace driver_feature::bench

// The cost of finding a feature and of reading one value by name.

#include <benchmark/benchmark.h>

#include <utility>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"
#include "frame/exports.h"

namespace driver_feature::bench {

namespace {

template <class Value, class Function>
void addReadingOf(Operations& operations, const char* name, Function* function,
                  const char* property, int type) {
  operations.push_back({name, kFeatureCounts, [function, property, type](int size) {
                          useModel("typed", size);
                          return Step{
                              [function, property, names = namesOfType(size, type)]() mutable {
                                Value value{};
                                function(names.next(), property, &value);
                                benchmark::DoNotOptimize(value);
                              }};
                        }});
}

// `value` keeps the capacity that it has got.
Step readingText(NamesInTurn names, const char* property) {
  return {[names = std::move(names), property, value = std::string()]() mutable {
    GetFeatureTextValue(names.next(), property, value);
  }};
}

}  // namespace

void addReading(Operations& operations) {
  operations.push_back({"find feature", kFeatureCounts, [](int size) {
                          DriverFeatureSet& set = useModel(kPSCarrier.kind, size);
                          return Step{[&set, names = NamesInTurn(size)]() mutable {
                            benchmark::DoNotOptimize(set.FindFeatureInFeatureList(names.next()));
                          }};
                        }});
  addReadingOf<int>(operations, "read int", GetFeatureIntValue, "CurrentIntValue", kIntNumber);
  addReadingOf<float>(operations, "read float", GetFeatureFloatValue, "CurrentFloatValue",
                      kFloatNumber);
  addReadingOf<bool>(operations, "read bool", GetFeatureBoolValue, "Sensitivity", kIntNumber);
  operations.push_back({"read text", kFeatureCounts, [](int size) {
                          useModel("typed", size);
                          return readingText(namesOfType(size, kTextNumber), "CurrentTextValue");
                        }});
  operations.push_back({"read choice", kFeatureCounts, [](int size) {
                          useModel(kPSCarrier.kind, size);
                          return readingText(NamesInTurn(size), "ValueString");
                        }});
  operations.push_back(
      {"find by attribute", kFeatureCounts, [](int size) {
         DriverFeatureSet& set = useModel(kPSCarrier.kind, size);
         return Step{.run =
                         [&set, property = std::string("Name"), name = featureName(size - 1)] {
                           benchmark::DoNotOptimize(set.FindFeatureInFeatureList(property, name));
                         },
                     .overAll = true};
       }});
}

}  // namespace driver_feature::bench

// What a user interface asks of the set after every click: a feature by name,
// another choice, and the printer-ready output of everything.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/model.h"

namespace driver_feature::bench {
namespace {

void find_Feature_ByName(benchmark::State& state) {
  const int features = static_cast<int>(state.range(0));
  DriverFeatureSet& model = modelOf(features);
  const std::string name = featureName(features / 2);
  for (auto _ : state) benchmark::DoNotOptimize(model.FindFeatureInFeatureList(name));
}

void change_Choice_ByName(benchmark::State& state) {
  const int features = static_cast<int>(state.range(0));
  DriverFeatureSet& model = modelOf(features);
  const std::string name = featureName(features / 2);
  const std::string property = "ValueString";
  const std::string choices[] = {"ChoiceB", "ChoiceD"};
  std::size_t turn = 0;
  for (auto _ : state) {
    CoreFeature* feature = model.FindFeatureInFeatureList(name);
    benchmark::DoNotOptimize(feature->setFeatureProperty(property, choices[turn ^= 1]));
  }
}

// The type is the second argument of the benchmark: 0 PJL, 1 PostScript, 2
// job ticket.
void serialize_Everything(benchmark::State& state) {
  DriverFeatureSet& model = modelOf(static_cast<int>(state.range(0)));
  std::string output;
  for (auto _ : state) {
    output.clear();
    model.serialize(output, static_cast<int>(state.range(1)), false, "", "");
    benchmark::DoNotOptimize(output.data());
  }
  if (output.empty()) state.SkipWithError("nothing was written");
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(output.size()));
}

BENCHMARK(find_Feature_ByName)->RangeMultiplier(10)->Range(10, 10000);
BENCHMARK(change_Choice_ByName)->RangeMultiplier(10)->Range(10, 10000);
BENCHMARK(serialize_Everything)->ArgsProduct({{10, 100, 1000}, {0, 1, 2}});

}  // namespace
}  // namespace driver_feature::bench

// The measured operations, each over models of several sizes.
//
// The same operations are timed by Google Benchmark (timing_main.cc) and
// counted in instructions under callgrind (counting_main.cc), and those of the
// library and those of the peer, libcups, run in the same two frames.
#ifndef BENCH_OPERATION_H_
#define BENCH_OPERATION_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace driver_feature::bench {

struct Step {
  std::function<void()> run;
  // Cleans up after each run, unmeasured. May be empty.
  std::function<void()> after = {};
  // How often it is run to be timed, whatever the size; 0 lets the framework
  // decide. For runs that leave something that cannot be cleaned up.
  std::int64_t iterations = 0;
  // Whether it visits all features, so that counting one run is enough.
  bool overAll = false;
};

struct Operation {
  std::string name;
  std::vector<int> sizes;
  // Makes or finds the model of that size. Called before each measurement, so
  // that it may set the library's state.
  std::function<Step(int size)> prepare;
};

using Operations = std::vector<Operation>;

inline const std::vector<int> kFeatureCounts = {10, 100, 1000, 10000};
inline const std::vector<int> kRecordCounts = {10, 100, 1000};

// Each program defines this: its operations, in the order of the table.
void addOperations(Operations& operations);

// And this: the PostScript of a model in which every third feature has its
// third choice and all others their first. Shows that both programs do the
// same work.
std::string textOfModel(int size);

// And this: the PostScript of a real printer's model as it was loaded.
std::string textOfRealModel(int number);

// The file of the generated model with this many features; `kind` is one of
// those of generated_model.h. The folder comes from the environment variable
// BENCH_MODELS.
std::string modelPath(const std::string& kind, int size);

}  // namespace driver_feature::bench

#endif  // BENCH_OPERATION_H_

// How much memory a model takes: bytes that stay resident for each feature and
// each option.
//
//   BENCH_MODELS=FOLDER memory_report FEATURES [HIGHEST-MIB]
//
// It fails when the model with five options for each feature takes more.

#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "bench/loaded_model.h"
#include "bench/operation.h"

namespace driver_feature::bench {
namespace {

long residentBytes() {
  std::ifstream statistics("/proc/self/statm");
  long pages = 0;
  long resident = 0;
  statistics >> pages >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

// What a model adds to the resident memory. What reading the document leaves
// free is given back first, so that it is not taken for the model.
long residentBytesOf(const std::string& kind, int size) {
  const auto document = readModel(modelPath(kind, size));
  malloc_trim(0);
  const long before = residentBytes();
  startEmptySet();
  build(*document);
  return residentBytes() - before;
}

double report(int features) {
  const auto narrow = static_cast<double>(residentBytesOf("ps", features));
  const auto wide = static_cast<double>(residentBytesOf("wide", features));
  const double option = (wide - narrow) / features / kChoices;
  const double mebibytes = narrow / 1048576;
  std::cout << "word of the machine     " << 8 * sizeof(void*) << " bits\n"
            << "features                " << features << '\n'
            << "option                  " << option << " bytes\n"
            << "feature alone           " << narrow / features - kChoices * option << " bytes\n"
            << "feature with 5 options  " << narrow / features << " bytes\n"
            << "all of them             " << mebibytes << " MiB\n";
  return mebibytes;
}

}  // namespace
}  // namespace driver_feature::bench

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: memory_report FEATURES [HIGHEST-MIB]\n";
    return 2;
  }
  const double mebibytes = driver_feature::bench::report(std::atoi(argv[1]));
  return argc > 2 && mebibytes > std::atof(argv[2]) ? 1 : 0;
}

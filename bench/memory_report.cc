// How much memory a model takes: bytes that stay resident for each feature, each
// option and each record of five members.
//
//   BENCH_MODELS=FOLDER memory_report FEATURES [HIGHEST-MIB]
//
// There are as many records as features. It fails when the model with five options
// for each feature takes more.

#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "bench/loaded_model.h"
#include "bench/operation.h"
#include "frame/state.h"
#include "host/base/decimal.h"
#include "model/core_feature_group.h"
#include "model/driver_feature.h"
#include "model/driver_feature_option.h"

#include "AttributeMap.h"

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

// What records add, their list's choices being so many.
double residentBytesOfRecord(int records, int choices) {
  startEmptySet();
  build(*readModel(modelPath("five", 0)));
  CoreFeature* list = libraryState().masterSet->FindFeatureInFeatureList("RecordChoice");
  for (int i = kChoices; i < choices; ++i) {
    dynamic_cast<DriverFeature&>(*list).addOptionToFeature(new DriverFeatureOption(featureName(i)));
  }
  CoreFeature* object = libraryState().masterSet->FindFeatureInFeatureList("Records");
  auto& group = dynamic_cast<IntermediateDynamicFeatureGroup&>(*object);
  AttributeMap values = fiveMemberValues(0);
  group.addStaticGroupToDynamicGroupWithSort(values, false);
  malloc_trim(0);
  const long before = residentBytes();
  for (int i = 0; i < records; ++i) {
    values = fiveMemberValues(i);
    group.addStaticGroupToDynamicGroupWithSort(values, false);
  }
  return static_cast<double>(residentBytes() - before) / records;
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
            << "record of 5 members     " << residentBytesOfRecord(features, kChoices) << " bytes\n"
            << "  a list of 2,000 in it " << residentBytesOfRecord(features / 10, 2000)
            << " bytes\n"
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
  return argc > 2 && mebibytes > driver_feature::host::decimal(argv[2]) ? 1 : 0;
}

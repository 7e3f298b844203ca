// The cost of dumping the whole model, without printing it.

#include <iostream>
#include <streambuf>

#include "bench/library_operations.h"
#include "bench/loaded_model.h"

namespace driver_feature::bench {

namespace {

// Takes everything and keeps nothing.
class NoOutput : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }
};

}  // namespace

void addDump(Operations& operations) {
  operations.push_back({"dump", kFeatureCounts, [](int size) {
                          DriverFeatureSet& set = useModel(kPSCarrier.kind, size);
                          return Step{.run =
                                          [&set] {
                                            NoOutput nowhere;
                                            std::streambuf* before = std::cout.rdbuf(&nowhere);
                                            set.dumpFeatureListValues();
                                            std::cout.rdbuf(before);
                                          },
                                      .overAll = true};
                        }});
}

}  // namespace driver_feature::bench

#include <cstdio>
#include <cstdlib>

#include "bench/operation.h"

namespace driver_feature::bench {

std::string modelPath(const std::string& kind, int size) {
  const char* folder = std::getenv("BENCH_MODELS");
  if (folder == nullptr) {
    std::fputs("BENCH_MODELS must name the folder that write_models has filled\n", stderr);
    std::exit(2);
  }
  return std::string(folder) + "/" + kind + "_" + std::to_string(size);
}

}  // namespace driver_feature::bench

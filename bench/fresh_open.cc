// The peer's side of fresh_load: opens one PPD file and ends.
//
//   fresh_open [--peak] FILE

#include <cups/ppd.h>

#include <cstdio>
#include <cstring>

#include "bench/peak_memory.h"

int main(int argc, char** argv) {
  if (argc < 2 || ppdOpenFile(argv[argc - 1]) == nullptr) {
    std::fputs("fresh_open: the file cannot be opened\n", stderr);
    return 1;
  }
  if (std::strcmp(argv[1], "--peak") == 0) driver_feature::bench::printPeakMemory();
  return 0;
}

// The most memory that the process had resident.
#ifndef BENCH_PEAK_MEMORY_H_
#define BENCH_PEAK_MEMORY_H_

#include <cstdio>
#include <cstring>

namespace driver_feature::bench {

// Prints it in KiB. What getrusage() reports includes what the process had
// before it became this program.
inline void printPeakMemory() {
  std::FILE* status = std::fopen("/proc/self/status", "re");
  if (status == nullptr) return;
  char line[256];
  while (std::fgets(line, sizeof line, status) != nullptr) {
    long size = 0;
    if (std::sscanf(line, "VmHWM: %ld", &size) == 1) std::printf("%ld\n", size);
  }
  std::fclose(status);
}

}  // namespace driver_feature::bench

#endif  // BENCH_PEAK_MEMORY_H_

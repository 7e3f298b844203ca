// Time that this thread has worked, so that a busy machine does not count.
#ifndef BENCH_RULES_FIGURES_WATCH_H_
#define BENCH_RULES_FIGURES_WATCH_H_

#include <ctime>

namespace driver_feature::figures {

class Watch {
 public:
  float microseconds() const { return static_cast<float>(now() - start_); }

 private:
  static double now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
  }

  double start_ = now();
};

}  // namespace driver_feature::figures

#endif  // BENCH_RULES_FIGURES_WATCH_H_

// Frees what the library makes and never frees itself: the records of dynamic
// groups and what they hold. One process of a host makes few of them, a fuzzer
// makes millions.
#ifndef FUZZ_OPERATIONS_MEMORY_WINDOW_H_
#define FUZZ_OPERATIONS_MEMORY_WINDOW_H_

namespace driver_feature::operations {

// At its end everything is freed, without a destructor, that was made with new
// while it lived and has not been deleted. There may be one at a time. What
// outlives it must have been made before.
class MemoryWindow {
 public:
  MemoryWindow();
  ~MemoryWindow();
  MemoryWindow(const MemoryWindow&) = delete;
  MemoryWindow& operator=(const MemoryWindow&) = delete;
};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_MEMORY_WINDOW_H_

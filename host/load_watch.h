// Tells the user which file was being loaded when the process ends.
#ifndef HOST_LOAD_WATCH_H_
#define HOST_LOAD_WATCH_H_

#include <functional>
#include <string>
#include <utility>

namespace driver_feature {

// While it lives, an end of the process (the library calls exit() when it
// cannot build a description) adds the line "driver-feature: FILE: the
// description could not be loaded", with what `remedy` returns behind it. One
// at a time.
class LoadWatch {
 public:
  using Remedy = std::function<std::string()>;

  LoadWatch(std::string file, Remedy remedy);
  ~LoadWatch();
  LoadWatch(const LoadWatch&) = delete;
  LoadWatch& operator=(const LoadWatch&) = delete;

 private:
  static void report();

  std::string file_;
  Remedy remedy_;
};

}  // namespace driver_feature

#endif  // HOST_LOAD_WATCH_H_

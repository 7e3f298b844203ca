// Reports which file was being loaded if the process ends.
#ifndef HOST_SESSION_LOAD_WATCH_H_
#define HOST_SESSION_LOAD_WATCH_H_

#include <functional>
#include <string>
#include <utility>

#include "host/session/log.h"

namespace driver_feature::host {

// While it lives, an end of the process (the library calls exit() when it
// cannot build a description) reports "FILE: the description could not be
// loaded", followed by what `remedy` returns. One at a time.
class LoadWatch {
 public:
  using Remedy = std::function<std::string()>;

  LoadWatch(std::string file, Remedy remedy, LineSink report);
  ~LoadWatch();
  LoadWatch(const LoadWatch&) = delete;
  LoadWatch& operator=(const LoadWatch&) = delete;

 private:
  static void reportEnd();

  std::string file_;
  Remedy remedy_;
  LineSink report_;
};

}  // namespace driver_feature::host

#endif  // HOST_SESSION_LOAD_WATCH_H_

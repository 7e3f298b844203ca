// For tests: keeps the lines of the platform's log while it lives, each as
// "LEVEL CATEGORY: TEXT".
#ifndef PLATFORM_RECORDED_LOG_H_
#define PLATFORM_RECORDED_LOG_H_

#include <string>
#include <utility>
#include <vector>

#include "Log.h"

namespace driver_feature::testing {

class RecordedLog {
 public:
  RecordedLog() { SetLogHandler(add, this); }
  ~RecordedLog() { SetLogHandler(nullptr, nullptr); }
  RecordedLog(const RecordedLog&) = delete;
  RecordedLog& operator=(const RecordedLog&) = delete;

  // The lines since the last call.
  std::vector<std::string> take() { return std::exchange(lines_, {}); }

 private:
  static void add(int level, const char* category, const char* text, std::size_t length,
                  void* context) {
    static_cast<RecordedLog*>(context)->lines_.push_back(std::to_string(level) + ' ' + category +
                                                         ": " + std::string(text, length));
  }

  std::vector<std::string> lines_;
};

}  // namespace driver_feature::testing

#endif  // PLATFORM_RECORDED_LOG_H_

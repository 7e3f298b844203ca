// A set that is written while the host does something: its routines, its log
// handler, its look-ups and its own objects may change what is being written.
#ifndef OUTPUT_HOST_IN_OUTPUT_TEST_H_
#define OUTPUT_HOST_IN_OUTPUT_TEST_H_

#include <functional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

#include "Log.h"

namespace driver_feature::testing {

// What the host of these tests does. Nothing again at the end of each test.
struct HostScript {
  std::string refusedName;                    // A property that the platform does not know.
  std::function<void(std::string&)> routine;  // "ChangeTheTextSoFar", of the text so far.
  std::function<void()> beforeLookUp;         // Before a routine is looked up.
  int platformLookUps = 0;                    // Of names of properties.
};
inline HostScript script;

inline constexpr int kPJLText = 0;
inline constexpr int kPostScriptText = 1;

// Three features, the second of which is changed: a list, a number and a text.
class HostInOutputTest : public ::testing::Test {
 protected:
  HostInOutputTest() {
    model_.option(list_, "first", {{"PSCommand", "1st"}, {"PJLCommand", "ONE"}});
    model_.option(list_, "second", {{"PSCommand", "2nd"}, {"PJLCommand", "TWO"}});
  }
  ~HostInOutputTest() override {
    script = {};
    SetLogHandler(nullptr, nullptr);
  }

  static std::string write(int type = kPostScriptText) {
    std::string output;
    masterSet().serialize(output, type, false, nullptr, nullptr);
    return output;
  }

  static void set(CoreFeature& feature, const std::string& property, const std::string& value) {
    feature.setFeatureProperty(property, value);
  }
  static void set(CoreFeature& feature, const std::string& property, int value) {
    feature.setFeatureProperty(property, value);
  }

  // The first log line runs `action`.
  void atTheNextLine(std::function<void()> action) {
    onLine_ = std::move(action);
    SetLogHandler(
        [](int, const char*, const char*, std::size_t, void* context) {
          auto& onLine = *static_cast<std::function<void()>*>(context);
          if (onLine) std::exchange(onLine, nullptr)();
        },
        &onLine_);
  }

  RecordingHost host_;
  ModelBuilder model_;
  DriverFeature& list_ = model_.feature("a", 1, {{"PSCommand", "<%s>"}, {"PJLCommand", "L=%s;"}});
  DriverFeature& number_ = model_.feature("b", 2, {{"PSCommand", "[%d]"}, {"PJLCommand", "N=%d;"}});
  DriverFeature& text_ = model_.feature("c", 3, {{"PSCommand", "(%s)"}, {"PJLCommand", "T=%s;"}});

 private:
  std::function<void()> onLine_;
};

}  // namespace driver_feature::testing

#endif  // OUTPUT_HOST_IN_OUTPUT_TEST_H_

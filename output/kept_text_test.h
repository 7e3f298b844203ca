// A set that is written again and again, for tests.
#ifndef OUTPUT_KEPT_TEXT_TEST_H_
#define OUTPUT_KEPT_TEXT_TEST_H_

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {

// How often the platform has been asked for a property's name. Counted by the
// program's own look-up, which stands in front of the platform's.
inline int platformLookUps = 0;

inline constexpr int kPJLText = 0;
inline constexpr int kPostScriptText = 1;

// Three features, the second of which is changed: a list, a number and a text.
class KeptTextTest : public ::testing::Test {
 protected:
  KeptTextTest() {
    model_.option(list_, "first", {{"PSCommand", "1st"}, {"PJLCommand", "ONE"}});
    model_.option(list_, "second", {{"PSCommand", "2nd"}, {"PJLCommand", "TWO"}});
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

  RecordingHost host_;
  ModelBuilder model_;
  DriverFeature& list_ = model_.feature("a", 1, {{"PSCommand", "<%s>"}, {"PJLCommand", "L=%s;"}});
  DriverFeature& number_ = model_.feature("b", 2, {{"PSCommand", "[%d]"}, {"PJLCommand", "N=%d;"}});
  DriverFeature& text_ = model_.feature("c", 3, {{"PSCommand", "(%s)"}, {"PJLCommand", "T=%s;"}});
};

}  // namespace driver_feature::testing

#endif  // OUTPUT_KEPT_TEXT_TEST_H_

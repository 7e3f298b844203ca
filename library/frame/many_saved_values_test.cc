// Saving and restoring so many features that their names are not fetched from the
// map one by one: the order, the lines and the values are the same.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "model/driver_feature.h"
#include "model/notification.h"
#include "support/failing_memory.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kMany = 200;

// "f000" to "f199".
std::string nameOf(int number) {
  const std::string digits = std::to_string(number);
  return "f" + std::string(3 - digits.size(), '0') + digits;
}

// A feature whose number cannot be read.
class UnreadableNumber : public DriverFeature {
 public:
  using DriverFeature::DriverFeature;
  using DriverFeature::getFeatureProperty;
  bool getFeatureProperty(const std::string& /*name*/, int* /*value*/) override { return false; }
};

AttributeMap* changedMap = nullptr;

// Adds a name to the map that is being walked, at the first call.
bool addName() {
  if (changedMap != nullptr) (*changedMap)["f0995"];
  changedMap = nullptr;
  return true;
}

class ManySavedValuesTest : public ::testing::Test {
 protected:
  ManySavedValuesTest() {
    // Not in the order of the names.
    for (int i = 0; i < kMany; ++i) {
      const int number = (i * 77) % kMany;
      feature(number).setFeatureProperty(std::string("CurrentIntValue"), number);
      names_[nameOf(number)];
    }
    host_.takeEvents();
  }
  ~ManySavedValuesTest() override { setDriverFeatureUpdateCallback(nullptr); }

  DriverFeature& feature(int number) {
    DriverFeature* known = masterSet().list().findFeature(nameOf(number));
    return known != nullptr ? *known : model_.feature(nameOf(number), 2);
  }

  int read(int number, const char* property) {
    int value = -1;
    feature(number).DriverFeature::getFeatureProperty(std::string(property), &value);
    return value;
  }

  RecordingHost host_;
  ModelBuilder model_;
  AttributeMap names_;
};

TEST_F(ManySavedValuesTest, SaveAndRestore_AllValuesComeBack) {
  SaveCurrentFeatureValues(names_);
  for (int i = 0; i < kMany; ++i) {
    EXPECT_EQ(read(i, "OriginalIntValue"), i);
    feature(i).setFeatureProperty(std::string("CurrentIntValue"), 1000);
  }
  RestoreOriginalFeatureValues(names_);
  for (int i = 0; i < kMany; ++i) EXPECT_EQ(read(i, "CurrentIntValue"), i);
}

TEST_F(ManySavedValuesTest, Save_NoMemoryForTheListOfNames_SavesAllByWalkingOverTheMap) {
  failingMemory.failAfter(0);
  SaveCurrentFeatureValues(names_);
  EXPECT_TRUE(failingMemory.hasFailed());
  failingMemory.stop();
  for (int i = 0; i < kMany; ++i) EXPECT_EQ(read(i, "OriginalIntValue"), i);
}

TEST_F(ManySavedValuesTest, Save_FeatureThatIsNotNamed_IsLeftAlone) {
  model_.feature("f0505", 2).setFeatureProperty(std::string("CurrentIntValue"), 5);
  SaveCurrentFeatureValues(names_);
  int value = -1;
  masterSet().list().findFeature("f0505")->getFeatureProperty(std::string("OriginalIntValue"),
                                                              &value);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(read(51, "OriginalIntValue"), 51);
}

TEST_F(ManySavedValuesTest, Save_ValueThatCannotBeRead_IsTheOneOfTheNameBefore) {
  UnreadableNumber unreadable(nameOf(120));
  unreadable.setFeatureProperty(std::string("FeatureType"), 2);
  masterSet().addFeatureToFeatureList(nameOf(120), &unreadable);
  SaveCurrentFeatureValues(names_);
  EXPECT_EQ(read(120, "OriginalIntValue"), 119);
}

TEST_F(ManySavedValuesTest, Save_UnknownNameAmongThem_IsLoggedAndTheOthersAreSaved) {
  names_["f0505"];
  SaveCurrentFeatureValues(names_);
  EXPECT_THAT(
      host_.takeEvents(),
      ElementsAre(logLine(3, "FindFeatureInFeatureList() - Did not find feature \"f0505\"."),
                  logLine(2, "SaveCurrentFeatureValues() - Cannot find feature \"f0505\"")));
  for (int i = 0; i < kMany; ++i) EXPECT_EQ(read(i, "OriginalIntValue"), i);
}

TEST_F(ManySavedValuesTest, Restore_CallbackAddsAName_IsHandledInItsTurn) {
  model_.feature("f0995", 2).setFeatureProperty(std::string("OriginalIntValue"), 5);
  for (int i = 0; i < kMany; ++i) {
    feature(i).setFeatureProperty(std::string("OriginalIntValue"), i + 1);
  }
  changedMap = &names_;
  setDriverFeatureUpdateCallback(addName);
  RestoreOriginalFeatureValues(names_);
  int value = -1;
  masterSet().list().findFeature("f0995")->getFeatureProperty(std::string("CurrentIntValue"),
                                                              &value);
  EXPECT_EQ(value, 5);
  for (int i = 0; i < kMany; ++i) EXPECT_EQ(read(i, "CurrentIntValue"), i + 1);
}

}  // namespace
}  // namespace driver_feature::testing

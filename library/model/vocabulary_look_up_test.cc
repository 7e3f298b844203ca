// How names reach the platform's look-up, and how its results are used. This
// test program defines the look-up itself, in front of the platform's.

#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "model/vocabulary.h"
#include "support/platform_look_up.h"
#include "support/property_facts.h"
#include "support/recording_host.h"

#include "AttributeList.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAreArray;

// What the look-up has been given last, and what it answers instead of the
// truth.
struct LookUp {
  int calls = 0;
  std::vector<std::string> names;
  std::string name;
  const int* answer = nullptr;
};

LookUp lookUp;

class VocabularyLookUpTest : public ::testing::Test {
 protected:
  VocabularyLookUpTest() { lookUp = {}; }
  ~VocabularyLookUpTest() override { lookUp = {}; }

  RecordingHost host_;
};

TEST_F(VocabularyLookUpTest, Property_IsLookedUpInAllNames) {
  EXPECT_EQ(findProperty("Visibility"), Property::kVisibility);
  EXPECT_EQ(lookUp.calls, 1);
  EXPECT_THAT(lookUp.names, ElementsAreArray(namesOf(kPropertyFacts)));
  EXPECT_EQ(lookUp.name, "Visibility");
}

TEST_F(VocabularyLookUpTest, OptionProperty_IsLookedUpInTheOptionNames) {
  EXPECT_EQ(findOptionProperty("CLOKey"), OptionProperty::kCLOKey);
  EXPECT_EQ(lookUp.calls, 1);
  EXPECT_THAT(lookUp.names, ElementsAreArray(namesOf(kOptionPropertyFacts)));
  EXPECT_EQ(lookUp.name, "CLOKey");
}

TEST_F(VocabularyLookUpTest, RoutineResult_OutsideTheVocabulary_IsAnUnknownName) {
  for (const int answer : {-1, -2, INT_MIN, INT_MAX, 45, 46}) {
    lookUp.answer = &answer;
    EXPECT_EQ(findProperty("Name"), std::nullopt) << answer;
  }
  for (const int answer : {-1, INT_MIN, INT_MAX, 10, 26}) {
    lookUp.answer = &answer;
    EXPECT_EQ(findOptionProperty("Name"), std::nullopt) << answer;
  }
}

TEST_F(VocabularyLookUpTest, RoutineResult_WithinTheVocabulary_IsTaken) {
  for (const int answer : {0, 44}) {
    lookUp.answer = &answer;
    EXPECT_EQ(findProperty("whatever"), static_cast<Property>(answer));
  }
  for (const int answer : {0, 9}) {
    lookUp.answer = &answer;
    EXPECT_EQ(findOptionProperty("whatever"), static_cast<OptionProperty>(answer));
  }
}

TEST_F(VocabularyLookUpTest, Objects_TakeTheResultForTheName) {
  DriverFeature feature(std::string("Tray"));
  DriverFeatureOption option(std::string("A4"));
  const int clo = 6;
  lookUp.answer = &clo;
  EXPECT_TRUE(feature.setFeatureProperty(std::string("whatever"), std::string("key")));
  const int displayText = 1;
  lookUp.answer = &displayText;
  EXPECT_TRUE(option.setOptionProperty(std::string("whatever"), std::string("shown")));
  lookUp.answer = nullptr;
  std::string text;
  EXPECT_TRUE(feature.getFeatureProperty(std::string("CLOKey"), text));
  EXPECT_EQ(text, "key");
  EXPECT_TRUE(option.getOptionProperty(std::string("DisplayText"), text));
  EXPECT_EQ(text, "shown");
}

}  // namespace
}  // namespace driver_feature::testing

int ParseAttributeList_LowLevel(const char* const* names, int highestIndex, const char* name) {
  using driver_feature::testing::lookUp;
  ++lookUp.calls;
  lookUp.names.assign(names, names + highestIndex + 1);
  lookUp.name = name;
  if (lookUp.answer != nullptr) return *lookUp.answer;
  return driver_feature::testing::askPlatform(names, highestIndex, name);
}

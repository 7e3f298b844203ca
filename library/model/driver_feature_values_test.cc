// What storing and reading a feature's values does beyond the matrix.

#include <climits>
#include <limits>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "support/property_facts.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FeatureValuesTest : public ::testing::Test {
 protected:
  FeatureValuesTest() { host_.registerUpdateCallback(); }

  void setType(int type) { feature_.setFeatureProperty(std::string("FeatureType"), type); }

  template <class Value>
  bool set(const std::string& name, const Value& value) {
    return feature_.setFeatureProperty(name, value);
  }

  int readInt(const std::string& name) {
    int value = -99;
    EXPECT_TRUE(feature_.getFeatureProperty(name, &value)) << name;
    return value;
  }

  float readFloat(const std::string& name) {
    float value = -99;
    EXPECT_TRUE(feature_.getFeatureProperty(name, &value)) << name;
    return value;
  }

  std::string readText(const std::string& name) {
    std::string value = "unset";
    EXPECT_TRUE(feature_.getFeatureProperty(name, value)) << name;
    return value;
  }

  RecordingHost host_;
  DriverFeature feature_{std::string("Tray")};
};

TEST_F(FeatureValuesTest, NewFeature_HasTheDefaults) {
  EXPECT_EQ(readText("Name"), "Tray");
  EXPECT_EQ(readInt("FeatureType"), 1);
  EXPECT_EQ(feature_.getFeatureType(), 1);
  EXPECT_EQ(readInt("FeatureValueType"), 1);
  for (const PropertyFacts& facts : factsBut({"FeatureType", "FeatureValueType"},
                                             factsToRead(&PropertyFacts::feature, Kind::kInt))) {
    EXPECT_EQ(readInt(facts.name), 0) << facts.name;
  }
  for (const PropertyFacts& facts : factsToRead(&PropertyFacts::feature, Kind::kFloat)) {
    EXPECT_EQ(readFloat(facts.name), 0.0F) << facts.name;
  }
  for (const PropertyFacts& facts : factsBut({"Name", "AddPSCallbackRoutine", "ValueString"},
                                             factsToRead(&PropertyFacts::feature, Kind::kText))) {
    EXPECT_EQ(readText(facts.name), "") << facts.name;
  }
  for (const auto& [name, expected] : {std::pair("Sensitivity", true),
                                       {"Visibility", true},
                                       {"Encrypted", false},
                                       {"FeatureInGroup", false}}) {
    bool flag = !expected;
    EXPECT_TRUE(feature_.getFeatureProperty(std::string(name), &flag)) << name;
    EXPECT_EQ(flag, expected) << name;
  }
  EXPECT_TRUE(feature_.isConstraintSetEmpty());
  EXPECT_EQ(feature_.getFeatureOptionCount(), 0);
  DriverFeature unnamed;
  std::string name = "unset";
  EXPECT_TRUE(unnamed.getFeatureProperty(std::string("Name"), name));
  EXPECT_EQ(name, "");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

struct TypeRow {
  int type;
  int valueType;  // After setting the type.
};

TEST_F(FeatureValuesTest, FeatureType_InRange_DecidesTheValueType) {
  const TypeRow rows[] = {{0, 0}, {1, 1}, {2, 1}, {3, 2}, {4, 3}};
  for (const TypeRow& row : rows) {
    setType(row.type);
    EXPECT_EQ(feature_.getFeatureType(), row.type);
    EXPECT_EQ(readInt("FeatureValueType"), row.valueType) << row.type;
    for (const int unchanged : {5, 6, 7, 8}) {
      setType(unchanged);
      EXPECT_EQ(readInt("FeatureType"), unchanged);
      EXPECT_EQ(readInt("FeatureValueType"), row.valueType) << unchanged;
    }
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureValuesTest, Types_OutOfRange_AreRefused) {
  const std::pair<const char*, int> rows[] = {{"FeatureType", 9},       {"FeatureType", -1},
                                              {"FeatureType", INT_MAX}, {"FeatureType", INT_MIN},
                                              {"FeatureValueType", 4},  {"FeatureValueType", -1}};
  for (const auto& [name, value] : rows) {
    EXPECT_FALSE(set(name, value));
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3,
                                    "DriverFeature::setFeatureProperty(int) - Invalid feature "
                                    "property value \"" +
                                        std::to_string(value) + "\" for feature property \"" +
                                        name + "\" for feature \"Tray.")));
    EXPECT_EQ(readInt("FeatureType"), 1);
    EXPECT_EQ(readInt("FeatureValueType"), 1);
  }
}

TEST_F(FeatureValuesTest, FeatureValueType_InRange_LeavesTheFeatureType) {
  for (const int value : {0, 2, 3, 1}) {
    EXPECT_TRUE(set("FeatureValueType", value));
    EXPECT_EQ(readInt("FeatureValueType"), value);
    EXPECT_EQ(readInt("FeatureType"), 1);
  }
}

struct ByteRow {
  float value;
  char shown;
};

TEST_F(FeatureValuesTest, MismatchLine_OfANumber_ShowsItsLowEightBits) {
  setType(3);
  const std::pair<int, char> ints[] = {{65, 'A'},    {65 + 256, 'A'}, {0, '\0'},
                                       {-1, '\xFF'}, {INT_MIN, '\0'}, {INT_MAX, '\xFF'}};
  const auto lineFor = [](const char* kind, const char* name, char shown, const char* word) {
    return logLine(3, std::string("DriverFeature::setFeatureProperty(") + kind +
                          ") - Attempt to set feature property:  \"" + name +
                          "\" for feature \"Tray\" to " + shown + "where the feature is not a " +
                          word + " valued feature.");
  };
  for (const auto& [value, shown] : ints) {
    EXPECT_TRUE(set("CurrentIntValue", value));
    EXPECT_THAT(host_.takeEvents(), ElementsAre(lineFor("int", "CurrentIntValue", shown, "int")));
  }
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const ByteRow floats[] = {{65.99F, 'A'},
                            {-65.99F, static_cast<char>(-65)},
                            {321.5F, 'A'},
                            {0.5F, '\0'},
                            {std::numeric_limits<float>::quiet_NaN(), '\0'},
                            {kInfinity, '\0'},
                            {-kInfinity, '\0'},
                            {2147483648.0F, '\0'},
                            {-2147483648.0F, '\0'},
                            {2147483520.0F, '\x80'},
                            {2147483904.0F, '\0'},
                            {1e30F, '\0'}};
  for (const ByteRow& row : floats) {
    EXPECT_TRUE(set("CurrentFloatValue", row.value));
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(lineFor("float", "CurrentFloatValue", row.shown, "float")))
        << row.value;
  }
  setType(2);
  EXPECT_TRUE(set("Encrypted", false));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(lineFor("bool", "Encrypted", '\0', "text")));
}

TEST_F(FeatureValuesTest, DeferredAndDefaultValues_AreStoredOnly) {
  EXPECT_TRUE(set("DeferredIntValue", 4));
  EXPECT_TRUE(set("DefaultIntValue", 5));
  EXPECT_TRUE(set("OriginalIntValue", 6));
  EXPECT_EQ(readInt("CurrentIntValue"), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureValuesTest, Limits_AreStoredAndNotEnforced) {
  setType(2);
  EXPECT_TRUE(set("IntMinValue", 1));
  EXPECT_TRUE(set("IntMaxValue", 9));
  EXPECT_TRUE(set("CurrentIntValue", 1000));
  EXPECT_EQ(readInt("CurrentIntValue"), 1000);
  setType(3);
  EXPECT_TRUE(set("MaxTextLength", 2));
  EXPECT_TRUE(set("TextValidationCharSet", std::string("ab")));
  EXPECT_TRUE(set("CurrentTextValue", std::string("xyz")));
  EXPECT_EQ(readText("CurrentTextValue"), "xyz");
}

TEST_F(FeatureValuesTest, PostScriptRoutine_WhileEmpty_ReadsAsAbsent) {
  std::string text = "kept";
  EXPECT_FALSE(feature_.getFeatureProperty(std::string("AddPSCallbackRoutine"), text));
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(readText("AddPJLCallbackRoutine"), "");
  EXPECT_EQ(readText("AddVORNCallbackRoutine"), "");
  set("AddPSCallbackRoutine", std::string("Routine"));
  EXPECT_EQ(readText("AddPSCallbackRoutine"), "Routine");
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing

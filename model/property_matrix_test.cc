// Every name, times the eight property operations of a feature, times every
// value type, against rows that are written by hand.

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "support/property_names.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

enum class Kind { kText, kInt, kFloat, kBool };

// Who hears of a store: nobody, everybody after a change, or the host always.
enum class Told { kNobody, kOnChange, kAlways };

constexpr int kAnyType = -1;

// What an operation of that kind accepts.
struct Row {
  const char* name;
  Kind kind;
  bool readable;
  int needed;  // The value type that a feature must have for setting it.
  Told told;
};

constexpr Row kRows[] = {
    {"AddCallbackRoutine", Kind::kText, false, kAnyType, Told::kNobody},
    {"AddPJLCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"AddPSCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"AddVORNCallbackRoutine", Kind::kText, true, kAnyType, Told::kNobody},
    {"BiDiDataSection", Kind::kText, true, kAnyType, Told::kNobody},
    {"CLOKey", Kind::kText, true, kAnyType, Told::kNobody},
    {"CurrentFloatValue", Kind::kFloat, true, 3, Told::kOnChange},
    {"CurrentIntValue", Kind::kInt, true, 1, Told::kOnChange},
    {"CurrentTextValue", Kind::kText, true, 2, Told::kOnChange},
    {"DefaultFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"DefaultIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"DefaultTextValue", Kind::kText, true, 2, Told::kNobody},
    {"DeferredFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"DeferredIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"DeferredTextValue", Kind::kText, true, 2, Told::kNobody},
    {"Encrypted", Kind::kBool, true, 2, Told::kAlways},
    {"FeatureInGroup", Kind::kBool, true, kAnyType, Told::kNobody},
    {"FeatureType", Kind::kInt, true, kAnyType, Told::kNobody},
    {"FeatureValueType", Kind::kInt, true, kAnyType, Told::kNobody},
    {"FloatMaxValue", Kind::kFloat, true, 3, Told::kNobody},
    {"FloatMinValue", Kind::kFloat, true, 3, Told::kNobody},
    {"InstOptAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"IntMaxValue", Kind::kInt, false, 1, Told::kNobody},
    {"IntMinValue", Kind::kInt, false, 1, Told::kNobody},
    {"MaxTextLength", Kind::kInt, true, 2, Told::kNobody},
    {"Name", Kind::kText, true, kAnyType, Told::kNobody},
    {"NonVORNAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"OriginalFloatValue", Kind::kFloat, true, 3, Told::kNobody},
    {"OriginalIntValue", Kind::kInt, true, 1, Told::kNobody},
    {"OriginalTextValue", Kind::kText, true, 2, Told::kNobody},
    {"PJLCommand", Kind::kText, true, kAnyType, Told::kNobody},
    {"PSCommand", Kind::kText, true, kAnyType, Told::kNobody},
    {"SNMPOID", Kind::kText, true, kAnyType, Told::kNobody},
    {"SNMPOIDPrefix", Kind::kText, true, kAnyType, Told::kNobody},
    {"Sensitivity", Kind::kBool, true, kAnyType, Told::kAlways},
    {"TESKAttributeSyntax", Kind::kText, true, kAnyType, Told::kNobody},
    {"TESKJTAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"TESKOAAttributeName", Kind::kText, true, kAnyType, Told::kNobody},
    {"TextValidationCharSet", Kind::kText, true, 2, Told::kNobody},
    {"Visibility", Kind::kBool, true, kAnyType, Told::kAlways},
};

// "ValueString" depends on the value type and has tests of its own.
constexpr const char* kOwnTests = "ValueString";

// How an operation of one kind of value is called, and what it says.
template <class Value>
struct Operation;

template <>
struct Operation<std::string> {
  static constexpr Kind kKind = Kind::kText;
  static constexpr const char* kSetter = "(string)";
  static inline const std::string kStored = "stored";
  static inline const std::string kShown = "stored";

  static bool get(DriverFeature& feature, const std::string& name, std::string& value) {
    return feature.getFeatureProperty(name, value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return "DriverFeature::getFeatureProperty(string&) - Unrecognized feature property: \"" + name +
           "\" for feature \"Tray\".";
  }
};

std::string unrecognizedNumberGet(const std::string& argument, const std::string& name) {
  return "DriverFeature::getFeatureProperty(" + argument +
         ") - Unrecognized feature property:  \"" + name + "\" for feature \"Tray.";
}

template <>
struct Operation<int> {
  static constexpr Kind kKind = Kind::kInt;
  static constexpr const char* kSetter = "(int)";
  static constexpr int kStored = 3;
  static inline const std::string kShown = "\x03";

  static bool get(DriverFeature& feature, const std::string& name, int& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("int*", name);
  }
};

template <>
struct Operation<float> {
  static constexpr Kind kKind = Kind::kFloat;
  static constexpr const char* kSetter = "(float)";
  static constexpr float kStored = 66.9F;
  static inline const std::string kShown = "B";

  static bool get(DriverFeature& feature, const std::string& name, float& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("float*", name);
  }
};

template <>
struct Operation<bool> {
  static constexpr Kind kKind = Kind::kBool;
  static constexpr const char* kSetter = "(bool)";
  static constexpr bool kStored = true;
  static inline const std::string kShown = "\x01";

  static bool get(DriverFeature& feature, const std::string& name, bool& value) {
    return feature.getFeatureProperty(name, &value);
  }
  static std::string unrecognizedGet(const std::string& name) {
    return unrecognizedNumberGet("bool*", name);
  }
};

const Row* findRow(const std::string& name, Kind kind) {
  const auto* const end = std::end(kRows);
  const auto* const found = std::find_if(
      std::begin(kRows), end, [&](const Row& row) { return row.name == name && row.kind == kind; });
  return found == end ? nullptr : found;
}

const char* wordFor(int valueType) {
  if (valueType == 1) return "int";
  return valueType == 2 ? "text" : "float";
}

class PropertyMatrixTest : public ::testing::TestWithParam<int> {
 protected:
  PropertyMatrixTest() { host_.registerUpdateCallback(); }

  template <class Value>
  void tryName(const std::string& name, bool suppressUpdate);
  template <class Value>
  void expectRead(DriverFeature& feature, const std::string& name, const Row* row, bool stored);

  template <class Value>
  void tryAllNames() {
    for (const std::string& name : everyName()) {
      if (name == kOwnTests && Operation<Value>::kKind == Kind::kText) continue;
      for (const bool suppressUpdate : {false, true}) {
        SCOPED_TRACE(name + (suppressUpdate ? ", silently" : ""));
        tryName<Value>(name, suppressUpdate);
      }
    }
  }

  RecordingHost host_;
};

template <class Value>
void PropertyMatrixTest::tryName(const std::string& name, bool suppressUpdate) {
  using Op = Operation<Value>;
  DriverFeature feature(std::string("Tray"));
  feature.setFeatureProperty(std::string("FeatureValueType"), GetParam());
  const Row* row = findRow(name, Op::kKind);
  const auto set = [&](const Value& value) {
    return suppressUpdate ? feature.setFeaturePropertyWithConstraintControl(name, value, true)
                          : feature.setFeatureProperty(name, value);
  };
  const std::string setter = std::string("DriverFeature::setFeatureProperty") + Op::kSetter;
  if (row == nullptr) {
    EXPECT_FALSE(set(Op::kStored));
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3, setter + " - Unrecognized feature property:  \"" + name +
                                           "\" for feature \"Tray.")));
    return expectRead<Value>(feature, name, row, false);
  }
  EXPECT_TRUE(set(Op::kStored));
  if (row->needed != kAnyType && row->needed != GetParam()) {
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(3, setter + " - Attempt to set feature property:  \"" + name +
                                           "\" for feature \"Tray\" to " + Op::kShown +
                                           "where the feature is not a " + wordFor(row->needed) +
                                           " valued feature.")));
    return expectRead<Value>(feature, name, row, false);
  }
  if (name == "AddCallbackRoutine") {
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2, setter + ":  Failed to load custom feature callback:  "
                                                "stored")));
  } else if (row->told == Told::kNobody || suppressUpdate) {
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
  } else {
    EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  }
  EXPECT_TRUE(set(Op::kStored));
  const bool toldAgain = row->told == Told::kAlways && !suppressUpdate;
  const bool loadsRoutine = name == "AddCallbackRoutine";  // And fails again.
  EXPECT_EQ(host_.takeEvents().size(), toldAgain || loadsRoutine ? 1U : 0U);
  expectRead<Value>(feature, name, row, true);
}

template <class Value>
void PropertyMatrixTest::expectRead(DriverFeature& feature, const std::string& name, const Row* row,
                                    bool stored) {
  using Op = Operation<Value>;
  const Value before{};
  Value value = before;
  if (row != nullptr && row->readable) {
    const bool hidden = name == "AddPSCallbackRoutine" && !stored;
    EXPECT_EQ(Op::get(feature, name, value), !hidden);
    if (stored) {
      EXPECT_EQ(value, Value(Op::kStored));
    }
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
    return;
  }
  EXPECT_FALSE(Op::get(feature, name, value));
  EXPECT_EQ(value, before);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(3, Op::unrecognizedGet(name))));
}

TEST_P(PropertyMatrixTest, Text_EveryName_IsAsItsRowSays) {
  tryAllNames<std::string>();
}
TEST_P(PropertyMatrixTest, Int_EveryName_IsAsItsRowSays) {
  tryAllNames<int>();
}
TEST_P(PropertyMatrixTest, Float_EveryName_IsAsItsRowSays) {
  tryAllNames<float>();
}
TEST_P(PropertyMatrixTest, Bool_EveryName_IsAsItsRowSays) {
  tryAllNames<bool>();
}

INSTANTIATE_TEST_SUITE_P(ValueTypes, PropertyMatrixTest, ::testing::Values(0, 1, 2, 3));

// Stores something else under each name of a kind, and reads all of them.
template <class Value, class Make>
void expectPlacesOfTheirOwn(int valueType, const Make& make) {
  RecordingHost host;
  DriverFeature feature(std::string("Tray"));
  feature.setFeatureProperty(std::string("FeatureValueType"), valueType);
  std::vector<const Row*> rows;
  for (const Row& row : kRows) {
    const bool settable = row.needed == kAnyType || row.needed == valueType;
    if (row.kind != Operation<Value>::kKind || !settable || !row.readable) continue;
    feature.setFeatureProperty(std::string(row.name), make(rows.size()));
    rows.push_back(&row);
  }
  ASSERT_FALSE(rows.empty());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Value value{};
    EXPECT_TRUE(Operation<Value>::get(feature, rows[i]->name, value)) << rows[i]->name;
    EXPECT_EQ(value, make(i)) << rows[i]->name;
  }
}

TEST(PropertyPlacesTest, EachProperty_HasAPlaceOfItsOwn) {
  expectPlacesOfTheirOwn<std::string>(2, [](std::size_t i) { return "text" + std::to_string(i); });
  expectPlacesOfTheirOwn<float>(3, [](std::size_t i) { return static_cast<float>(i) + 0.5F; });
  // "FeatureType" and "FeatureValueType" take small numbers only, which the
  // matrix covers; the others are told apart by theirs.
  RecordingHost host;
  DriverFeature feature(std::string("Tray"));
  const std::string names[] = {"CurrentIntValue", "DefaultIntValue", "OriginalIntValue",
                               "DeferredIntValue"};
  for (int i = 0; i < 4; ++i) feature.setFeatureProperty(names[i], 100 + i);
  feature.setFeatureProperty(std::string("IntMinValue"), 200);
  feature.setFeatureProperty(std::string("IntMaxValue"), 201);
  for (int i = 0; i < 4; ++i) {
    int value = 0;
    EXPECT_TRUE(feature.getFeatureProperty(names[i], &value));
    EXPECT_EQ(value, 100 + i);
  }
}

TEST(PropertyPlacesTest, EachFlag_HasAPlaceOfItsOwn) {
  const std::string flags[] = {"Sensitivity", "Visibility", "Encrypted", "FeatureInGroup"};
  RecordingHost host;
  for (const std::string& chosen : flags) {
    DriverFeature feature(std::string("Tray"));
    feature.setFeatureProperty(std::string("FeatureType"), 3);
    for (const std::string& flag : flags) feature.setFeatureProperty(flag, flag == chosen);
    for (const std::string& flag : flags) {
      bool value = false;
      EXPECT_TRUE(feature.getFeatureProperty(flag, &value));
      EXPECT_EQ(value, flag == chosen) << chosen << ' ' << flag;
    }
  }
}

}  // namespace
}  // namespace driver_feature::testing

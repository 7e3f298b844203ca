// Every name, times the property operations of a feature, times every value
// type, times what the host has asked for, against rows that are written by
// hand.

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/notification.h"
#include "model/driver_feature.h"
#include "support/feature_operations.h"
#include "support/feature_property_rows.h"
#include "support/property_names.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Row = FeaturePropertyRow;
using Events = std::vector<std::string>;

std::string render(const std::string& value) {
  return value;
}
template <class Number>
std::string render(Number value) {
  return std::to_string(value);
}

// What all readable properties hold.
using Snapshot = std::map<std::string, std::string>;

template <class Value>
void addTo(Snapshot& snapshot, DriverFeature& feature, const Row& row) {
  Value value{};
  const bool read = Operation<Value>::get(feature, row.name, value);
  snapshot[row.name] = read ? render(value) : "none";
}

Snapshot snapshotOf(DriverFeature& feature) {
  Snapshot snapshot;
  for (const Row& row : kFeaturePropertyRows) {
    if (!row.readable) continue;
    if (row.kind == Kind::kText) addTo<std::string>(snapshot, feature, row);
    if (row.kind == Kind::kInt) addTo<int>(snapshot, feature, row);
    if (row.kind == Kind::kFloat) addTo<float>(snapshot, feature, row);
    if (row.kind == Kind::kBool) addTo<bool>(snapshot, feature, row);
  }
  return snapshot;
}

const Row* findRow(const std::string& name, Kind kind) {
  const auto* const end = std::end(kFeaturePropertyRows);
  const auto* const found =
      std::find_if(std::begin(kFeaturePropertyRows), end,
                   [&](const Row& row) { return row.name == name && row.kind == kind; });
  return found == end ? nullptr : found;
}

const char* wordFor(int valueType) {
  if (valueType == 1) return "int";
  return valueType == 2 ? "text" : "float";
}

// Under which circumstances a value is set, and who is told of a change then.
struct Circumstances {
  const char* name;
  bool plainSetter;
  bool suppressUpdate;
  bool ticketLoading;
  bool creationComplete;
  bool callsChangeRoutine;
  bool callsUpdate;
};

constexpr Circumstances kAllCircumstances[] = {
    {"plain setter", true, false, false, true, true, true},
    {"setter with control", false, false, false, true, true, true},
    {"silent setter", false, true, false, true, true, false},
    {"while a ticket is loaded", true, false, true, true, true, false},
    {"silent while a ticket is loaded", false, true, true, true, true, false},
    {"before creation is complete", true, false, false, false, false, true},
    {"silent before creation is complete", false, true, false, false, false, false},
};

class PropertyMatrixTest : public ::testing::TestWithParam<int> {
 protected:
  PropertyMatrixTest() { host_.registerUpdateCallback(); }

  template <class Value>
  void tryName(const std::string& name, const Circumstances& circumstances, const Value& value);
  template <class Value>
  void expectRead(DriverFeature& feature, const std::string& name, const Value* stored);
  template <class Value>
  Events eventsOf(const std::string& name, const Circumstances& circumstances, const Value& value,
                  bool changed) const;

  template <class Value>
  void tryAllNames() {
    for (const std::string& name : everyName()) {
      if (name == "ValueString" && Operation<Value>::kKind == Kind::kText) continue;
      for (const Circumstances& circumstances : kAllCircumstances) {
        SCOPED_TRACE(name + ", " + circumstances.name);
        notification().ticketLoading = circumstances.ticketLoading;
        notification().creationComplete = circumstances.creationComplete;
        for (const Value& value : Operation<Value>::values()) {
          tryName<Value>(name, circumstances, value);
        }
      }
    }
  }

  bool isMismatch(const Row& row) const {
    return row.needed != kAnyType && row.needed != GetParam();
  }

  RecordingHost host_;
};

// What the host hears when a value is set.
template <class Value>
Events PropertyMatrixTest::eventsOf(const std::string& name, const Circumstances& circumstances,
                                    const Value& value, bool changed) const {
  using Op = Operation<Value>;
  const std::string setter = std::string("DriverFeature::setFeatureProperty") + Op::kSetter;
  const Row* row = findRow(name, Op::kKind);
  if (row == nullptr) {
    return {logLine(
        3, setter + " - Unrecognized feature property:  \"" + name + "\" for feature \"Tray.")};
  }
  if (isMismatch(*row)) {
    return {logLine(3, setter + " - Attempt to set feature property:  \"" + name +
                           "\" for feature \"Tray\" to " + Op::shown(value) +
                           "where the feature is not a " + wordFor(row->needed) +
                           " valued feature.")};
  }
  if (name == "AddCallbackRoutine") {
    return {logLine(2, setter + ":  Failed to load custom feature callback:  stored")};
  }
  Events events;
  const bool isChange = row->told == Told::kOnChange && changed;
  if (isChange && circumstances.callsChangeRoutine) events.push_back(kChangeCalled);
  const bool reported = isChange || row->told == Told::kAlways;
  if (reported && circumstances.callsUpdate) events.push_back(kUpdateCalled);
  return events;
}

template <class Value>
void PropertyMatrixTest::tryName(const std::string& name, const Circumstances& circumstances,
                                 const Value& value) {
  DriverFeature feature(std::string("Tray"));
  feature.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  feature.setFeatureProperty(std::string("FeatureValueType"), GetParam());
  const Row* row = findRow(name, Operation<Value>::kKind);
  const bool stores = row != nullptr && !isMismatch(*row);
  Snapshot expected = snapshotOf(feature);
  if (stores && row->readable) expected[name] = render(value);
  // Feature type 3 brings value type 2.
  if (stores && name == "FeatureType") expected["FeatureValueType"] = "2";
  for (const bool changed : {true, false}) {
    const bool answer = circumstances.plainSetter ? feature.setFeatureProperty(name, value)
                                                  : feature.setFeaturePropertyWithConstraintControl(
                                                        name, value, circumstances.suppressUpdate);
    EXPECT_EQ(answer, row != nullptr);
    EXPECT_THAT(host_.takeEvents(),
                ElementsAreArray(eventsOf<Value>(name, circumstances, value, changed)));
    EXPECT_EQ(snapshotOf(feature), expected);
  }
  expectRead<Value>(feature, name, stores ? &value : nullptr);
}

template <class Value>
void PropertyMatrixTest::expectRead(DriverFeature& feature, const std::string& name,
                                    const Value* stored) {
  using Op = Operation<Value>;
  const Row* row = findRow(name, Op::kKind);
  for (const Value& before : Op::outputs()) {
    Value value = before;
    if (row != nullptr && row->readable) {
      EXPECT_TRUE(Op::get(feature, name, value));
      if (stored != nullptr) {
        EXPECT_EQ(value, *stored);
      }
      EXPECT_THAT(host_.takeEvents(), IsEmpty());
      continue;
    }
    EXPECT_FALSE(Op::get(feature, name, value));
    EXPECT_EQ(value, before);
    EXPECT_THAT(host_.takeEvents(), ElementsAre(logLine(3, Op::unrecognizedGet(name))));
  }
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

}  // namespace
}  // namespace driver_feature::testing

// Every name, times the property operations of a feature, against facts that are
// written by hand.

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/notification.h"
#include "support/feature_operations.h"
#include "support/property_facts.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Events = std::vector<std::string>;

// Sets through one of the three ways: the plain setter, and the one with
// constraint control with and without notification.
enum class FeatureSetter { kPlain, kNotifying, kSilent };
constexpr FeatureSetter kFeatureSetters[] = {FeatureSetter::kPlain, FeatureSetter::kNotifying,
                                             FeatureSetter::kSilent};

template <class Value>
bool set(DriverFeature& feature, FeatureSetter way, const std::string& name, const Value& value) {
  if (way == FeatureSetter::kPlain) return feature.setFeatureProperty(name, value);
  return feature.setFeaturePropertyWithConstraintControl(name, value,
                                                         way == FeatureSetter::kSilent);
}

// Any type is as good as none.
void setValueType(DriverFeature& feature, int type) {
  feature.setFeatureProperty(std::string("FeatureValueType"), std::max(type, 0));
}

using Table = std::vector<PropertyFacts>;

// Those of a table that notify, and those that need a value type.
Table toldTo(Told told, Table table) {
  std::erase_if(table, [=](const PropertyFacts& facts) { return facts.told != told; });
  return table;
}
Table needing(int valueType, Table table) {
  std::erase_if(table, [=](const PropertyFacts& facts) { return facts.needed != valueType; });
  return table;
}

// A value type that a property may need, what the log calls it, and another.
struct NeedRow {
  int needed;
  const char* word;
  int other;
};
constexpr NeedRow kNeeds[] = {
    {kIntType, "int", 0},     {kIntType, "int", kTextType},    {kIntType, "int", kFloatType},
    {kTextType, "text", 0},   {kTextType, "text", kIntType},   {kTextType, "text", kFloatType},
    {kFloatType, "float", 0}, {kFloatType, "float", kIntType}, {kFloatType, "float", kTextType},
};

template <class Value>
class FeaturePropertiesTest : public ::testing::Test {
 protected:
  FeaturePropertiesTest() { host_.registerUpdateCallback(); }

  // What the value as text and the types store depends on more than the value, and
  // the look-up of a routine is logged: they have tests of their own.
  const Table settable_ =
      factsBut({"AddCallbackRoutine", "FeatureType", "FeatureValueType", "ValueString"},
               factsToSet(&PropertyFacts::feature, Operation<Value>::kKind));
  const Table readable_ = factsBut({"FeatureType", "FeatureValueType", "ValueString"},
                                   factsToRead(&PropertyFacts::feature, Operation<Value>::kKind));

  RecordingHost host_;
  DriverFeature feature_{std::string("Tray")};
};

using Kinds = ::testing::Types<std::string, int, float, bool>;
TYPED_TEST_SUITE(FeaturePropertiesTest, Kinds);

TYPED_TEST(FeaturePropertiesTest, Set_NameOfTheKind_IsTakenByAFeatureOfItsType) {
  for (const PropertyFacts& facts : this->settable_) {
    for (const FeatureSetter way : kFeatureSetters) {
      setValueType(this->feature_, facts.needed);
      EXPECT_TRUE(set(this->feature_, way, facts.name, Operation<TypeParam>::value(1)))
          << facts.name;
    }
  }
}

TYPED_TEST(FeaturePropertiesTest, Set_NameOutsideTheNotification_NotifiesNobody) {
  for (const PropertyFacts& facts : toldTo(Told::kNobody, this->settable_)) {
    setValueType(this->feature_, facts.needed);
    this->feature_.setFeatureProperty(std::string(facts.name), Operation<TypeParam>::value(1));
    EXPECT_THAT(this->host_.takeEvents(), IsEmpty()) << facts.name;
  }
}

TYPED_TEST(FeaturePropertiesTest, Set_AnyOtherName_IsLoggedAndRefused) {
  using Op = Operation<TypeParam>;
  for (const std::string& name :
       namesBut(namesOf(factsToSet(&PropertyFacts::feature, Op::kKind)))) {
    for (const FeatureSetter way : kFeatureSetters) {
      EXPECT_FALSE(set(this->feature_, way, name, Op::value(1))) << name;
      EXPECT_THAT(this->host_.takeEvents(),
                  ElementsAre(logLine(3, std::string("DriverFeature::setFeatureProperty") +
                                             Op::kSetter + " - Unrecognized feature property:  \"" +
                                             name + "\" for feature \"Tray.")));
    }
  }
}

TYPED_TEST(FeaturePropertiesTest, Set_FeatureOfAnotherType_IsLoggedAndKeepsTheValue) {
  using Op = Operation<TypeParam>;
  for (const NeedRow& row : kNeeds) {
    for (const PropertyFacts& facts : needing(row.needed, this->settable_)) {
      setValueType(this->feature_, row.other);
      EXPECT_TRUE(this->feature_.setFeatureProperty(std::string(facts.name), Op::value(1)));
      EXPECT_THAT(this->host_.takeEvents(),
                  ElementsAre(logLine(
                      3, std::string("DriverFeature::setFeatureProperty") + Op::kSetter +
                             " - Attempt to set feature property:  \"" + facts.name +
                             "\" for feature \"Tray\" to " + Op::kShown +
                             "where the feature is not a " + row.word + " valued feature.")));
      TypeParam value{};
      Op::get(this->feature_, facts.name, value);
      EXPECT_EQ(value, TypeParam{}) << facts.name;
      this->host_.takeEvents();
    }
  }
}

// The bits of a property's number distinguish any two properties, flags too.
TYPED_TEST(FeaturePropertiesTest, Get_NameThatCanBeRead_ReturnsWhatIsStoredUnderIt) {
  using Op = Operation<TypeParam>;
  for (const int bit : {0, 1, 2}) {
    int number = 0;
    for (const PropertyFacts& facts : this->readable_) {
      setValueType(this->feature_, facts.needed);
      this->feature_.setFeatureProperty(std::string(facts.name), Op::value(++number >> bit));
    }
    this->host_.takeEvents();
    number = 0;
    for (const PropertyFacts& facts : this->readable_) {
      TypeParam value{};
      EXPECT_TRUE(Op::get(this->feature_, facts.name, value)) << facts.name;
      EXPECT_EQ(value, Op::value(++number >> bit)) << facts.name;
    }
    EXPECT_THAT(this->host_.takeEvents(), IsEmpty());
  }
}

TYPED_TEST(FeaturePropertiesTest, Get_AnyOtherName_IsLoggedAndKeepsTheOutput) {
  using Op = Operation<TypeParam>;
  for (const std::string& name :
       namesBut(namesOf(factsToRead(&PropertyFacts::feature, Op::kKind)))) {
    for (const int before : {1, 2}) {
      TypeParam value = Op::value(before);
      EXPECT_FALSE(Op::get(this->feature_, name, value)) << name;
      EXPECT_EQ(value, Op::value(before)) << name;
      EXPECT_THAT(this->host_.takeEvents(), ElementsAre(logLine(3, Op::unrecognizedGet(name))));
    }
  }
}

// Under which circumstances a value is stored, and what the host hears then.
struct Circumstances {
  const char* name;
  FeatureSetter way;
  bool ticketLoading;
  bool creationComplete;
  Events ofAChange;
  Events ofAFlag;
};
const Circumstances kAllCircumstances[] = {
    {"plain", FeatureSetter::kPlain, false, true, {kChangeCalled, kUpdateCalled}, {kUpdateCalled}},
    {"with control",
     FeatureSetter::kNotifying,
     false,
     true,
     {kChangeCalled, kUpdateCalled},
     {kUpdateCalled}},
    {"silent", FeatureSetter::kSilent, false, true, {kChangeCalled}, {}},
    {"plain, ticket loading", FeatureSetter::kPlain, true, true, {kChangeCalled}, {}},
    {"silent, ticket loading", FeatureSetter::kSilent, true, true, {kChangeCalled}, {}},
    {"plain, not yet complete",
     FeatureSetter::kPlain,
     false,
     false,
     {kUpdateCalled},
     {kUpdateCalled}},
    {"silent, not yet complete", FeatureSetter::kSilent, false, false, {}, {}},
};

class FeatureCircumstancesTest : public ::testing::TestWithParam<Circumstances> {
 protected:
  FeatureCircumstancesTest() {
    host_.registerUpdateCallback();
    feature_.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
    notification().ticketLoading = GetParam().ticketLoading;
    notification().creationComplete = GetParam().creationComplete;
  }

  // What the host hears of a store in a feature of that value type.
  template <class Value>
  Events eventsOf(int valueType, const std::string& name, const Value& value) {
    setValueType(feature_, valueType);
    EXPECT_TRUE(set(feature_, GetParam().way, name, value));
    return host_.takeEvents();
  }

  RecordingHost host_;
  DriverFeature feature_{std::string("Tray")};
};

TEST_P(FeatureCircumstancesTest, CurrentValue_OnlyAChange_IsReported) {
  EXPECT_EQ(eventsOf(kIntType, "CurrentIntValue", 3), GetParam().ofAChange);
  EXPECT_THAT(eventsOf(kIntType, "CurrentIntValue", 3), IsEmpty());
  EXPECT_EQ(eventsOf(kTextType, "CurrentTextValue", std::string("x")), GetParam().ofAChange);
  EXPECT_THAT(eventsOf(kTextType, "CurrentTextValue", std::string("x")), IsEmpty());
  EXPECT_EQ(eventsOf(kFloatType, "CurrentFloatValue", 0.5F), GetParam().ofAChange);
  EXPECT_THAT(eventsOf(kFloatType, "CurrentFloatValue", 0.5F), IsEmpty());
}

TEST_P(FeatureCircumstancesTest, Flag_EveryStore_IsReported) {
  for (const char* name : {"Sensitivity", "Visibility", "Encrypted"}) {
    EXPECT_EQ(eventsOf(kTextType, name, false), GetParam().ofAFlag) << name;
    EXPECT_EQ(eventsOf(kTextType, name, false), GetParam().ofAFlag) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(All, FeatureCircumstancesTest, ::testing::ValuesIn(kAllCircumstances));

}  // namespace
}  // namespace driver_feature::testing

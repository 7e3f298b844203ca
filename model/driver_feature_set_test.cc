#include "model/driver_feature_set.h"

#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/state.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FeatureSetTest : public ::testing::Test {
 protected:
  FeatureSetTest() { host_.registerUpdateCallback(); }

  static std::string notFound(const std::string& name) {
    return logLine(3, "FindFeatureInFeatureList() - Did not find feature \"" + name + "\".");
  }

  static std::string noAttribute(const std::string& value) {
    return logLine(
        4, "FindFeatureInFeatureList() - Couldn't find feature with attribute \"" + value + "\".");
  }

  CoreFeature* find(const std::string& name) { return set_.FindFeatureInFeatureList(name); }
  CoreFeature* find(const std::string& attribute, const std::string& value) {
    return set_.FindFeatureInFeatureList(attribute, value);
  }

  RecordingHost host_;
  DriverFeatureSet set_;
  DriverFeature a_{std::string("a")};
  DriverFeature b_{std::string("B")};
  DriverFeatureStaticGroup static_{std::string("Static")};
  DriverFeatureDynamicGroup dynamic_{std::string("Dynamic")};
};

TEST_F(FeatureSetTest, NewSet_IsEmpty) {
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), nullptr);
  EXPECT_EQ(set_.fetchNumberOfStaticGroups(), 0);
  EXPECT_EQ(set_.fetchNumberOfDynamicGroups(), 0);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(0), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Add_NothingOrNoName_IsRefused) {
  EXPECT_EQ(set_.addFeatureToFeatureList("", &a_), 0);
  EXPECT_EQ(set_.addFeatureToFeatureList("a", nullptr), 0);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(nullptr), 0);
  EXPECT_EQ(set_.addDynamicGroupToFeatureList(nullptr), 0);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
  EXPECT_EQ(set_.fetchNumberOfStaticGroups(), 0);
  EXPECT_EQ(set_.fetchNumberOfDynamicGroups(), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Features_StandInByteOrderOfTheirNames) {
  EXPECT_EQ(set_.addFeatureToFeatureList("a", &a_), 1);
  EXPECT_EQ(set_.addFeatureToFeatureList("B", &b_), 1);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 2);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), &b_);
  EXPECT_EQ(set_.fetchFeatureByIndex(1), &a_);
  for (const int index : {-1, 2, INT_MIN, INT_MAX}) {
    EXPECT_EQ(set_.fetchFeatureByIndex(index), nullptr);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Add_SameName_ReplacesTheFirst) {
  set_.addFeatureToFeatureList("a", &a_);
  EXPECT_EQ(set_.addFeatureToFeatureList("a", &b_), 1);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 1);
  EXPECT_EQ(set_.fetchFeatureByIndex(0), &b_);
  EXPECT_EQ(find("a"), &b_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, Groups_StandInOrderOfAddition) {
  DriverFeatureStaticGroup first(std::string("z"));
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&first), 1);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&static_), 1);
  EXPECT_EQ(set_.addStaticGroupToFeatureList(&first), 1);
  EXPECT_EQ(set_.fetchNumberOfStaticGroups(), 3);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(0), &first);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(1), &static_);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(2), &first);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(3), nullptr);
  EXPECT_EQ(set_.fetchStaticGroupByIndex(-1), nullptr);
  EXPECT_EQ(set_.addDynamicGroupToFeatureList(&dynamic_), 1);
  EXPECT_EQ(set_.fetchDynamicGroupByIndex(0), &dynamic_);
  EXPECT_EQ(set_.fetchDynamicGroupByIndex(1), nullptr);
  EXPECT_EQ(set_.fetchNumberOfFeatures(), 0);
}

TEST_F(FeatureSetTest, FindByName_FeatureThenStaticThenDynamic) {
  DriverFeatureDynamicGroup dynamic(std::string("X"));
  DriverFeatureStaticGroup staticGroup(std::string("X"));
  set_.addDynamicGroupToFeatureList(&dynamic);
  EXPECT_EQ(find("X"), &dynamic);
  set_.addStaticGroupToFeatureList(&staticGroup);
  EXPECT_EQ(find("X"), &staticGroup);
  set_.addFeatureToFeatureList("X", &a_);
  EXPECT_EQ(find("X"), &a_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FindByName_Absent_IsLogged) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.addStaticGroupToFeatureList(&static_);
  EXPECT_EQ(find("A"), nullptr);
  EXPECT_EQ(find("static"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(notFound("A"), notFound("static")));
}

TEST_F(FeatureSetTest, FindByName_UsesTheNameOfFiling) {
  set_.addFeatureToFeatureList("filed", &a_);
  EXPECT_EQ(find("filed"), &a_);
  EXPECT_EQ(find("a"), nullptr);
}

TEST_F(FeatureSetTest, FindByAttribute_Features_AreTriedInOrder) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.addFeatureToFeatureList("B", &b_);
  EXPECT_EQ(find("CLOKey", "key"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(noAttribute("key")));
  a_.setFeatureProperty(std::string("CLOKey"), std::string("key"));
  EXPECT_EQ(find("CLOKey", "key"), &a_);
  b_.setFeatureProperty(std::string("CLOKey"), std::string("key"));
  EXPECT_EQ(find("CLOKey", "key"), &b_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FindByAttribute_Group_MatchesTheAttributesOwnName) {
  set_.addStaticGroupToFeatureList(&static_);
  set_.addDynamicGroupToFeatureList(&dynamic_);
  EXPECT_EQ(find("Name", "Static"), nullptr);
  EXPECT_EQ(find("Name", "Dynamic"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(noAttribute("Static"), noAttribute("Dynamic")));
  dynamic_.setFeatureProperty(std::string("Name"), std::string("Name"));
  EXPECT_EQ(find("Name", "anything"), &dynamic_);
  static_.setFeatureProperty(std::string("Name"), std::string("Name"));
  EXPECT_EQ(find("Name", "anything"), &static_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FindByAttribute_UnreadableProperty_IsComparedWithTheTextBefore) {
  set_.addFeatureToFeatureList("a", &a_);
  // Nothing has been read yet, so the text is empty.
  EXPECT_EQ(find("IntMinValue", ""), &a_);
  a_.setFeatureProperty(std::string("SNMPOID"), std::string("SNMPOID"));
  set_.addStaticGroupToFeatureList(&static_);
  set_.addDynamicGroupToFeatureList(&dynamic_);
  host_.takeEvents();
  // Groups have no such property; the feature has left its own name there.
  EXPECT_EQ(find("SNMPOID", "other"), &static_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FindByAttribute_AsksForFeaturesThroughTheSlot) {
  class Shifted : public DriverFeatureSet {
   public:
    explicit Shifted(DriverFeature& only) : only_(only) {}
    DriverFeature* fetchFeatureByIndex(int index) override { return index == 0 ? nullptr : &only_; }

   private:
    DriverFeature& only_;
  };
  Shifted set(b_);
  set.addFeatureToFeatureList("1", &a_);
  set.addFeatureToFeatureList("2", &a_);
  a_.setFeatureProperty(std::string("CLOKey"), std::string("key"));
  EXPECT_EQ(set.FindFeatureInFeatureList(std::string("CLOKey"), std::string("key")), nullptr);
  EXPECT_EQ(set.FindFeatureInFeatureList(std::string("Name"), std::string("B")), &b_);
}

TEST_F(FeatureSetTest, CreateOption_AnyArguments_MakesNothing) {
  set_.addFeatureToFeatureList("a", &a_);
  EXPECT_EQ(set_.CreateOptionForFeature("a", "option", 0), nullptr);
  EXPECT_EQ(set_.CreateOptionForFeature("missing", "", -1), nullptr);
  EXPECT_EQ(a_.getFeatureOptionCount(), 0);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FeatureSetTest, FetchRoutine_IsTheHosts) {
  EXPECT_EQ(set_.fetchCallbackRoutine("RecordUpdate"), reinterpret_cast<void*>(&RecordUpdate));
  EXPECT_EQ(set_.fetchCallbackRoutine("NoSuchRoutine"), nullptr);
  EXPECT_EQ(set_.fetchCallbackRoutine(""), nullptr);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

class RestoreDefaultsTest : public ::testing::Test {
 protected:
  RestoreDefaultsTest() { host_.registerUpdateCallback(); }

  DriverFeature& feature(const std::string& name, int type, const char* defaultName, auto value) {
    DriverFeature& feature = model_.feature(name, type);
    feature.setFeatureProperty(std::string(defaultName), value);
    return feature;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(RestoreDefaultsTest, EachType_TakesItsDefaultAndReportsOnce) {
  DriverFeature& list = feature("List", 1, "DefaultIntValue", 4);
  DriverFeature& number = feature("Number", 2, "DefaultIntValue", 5);
  DriverFeature& text = feature("Text", 3, "DefaultTextValue", std::string("default"));
  DriverFeature& fraction = feature("Fraction", 4, "DefaultFloatValue", 2.5F);
  number.setFeatureProperty(std::string("AddCallbackRoutine"), std::string("RecordChange"));
  libraryState().creationComplete = true;
  masterSet().restoreDefaultFeatureValues();
  int value = 0;
  EXPECT_TRUE(list.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 4);
  EXPECT_TRUE(number.getFeatureProperty(std::string("CurrentIntValue"), &value));
  EXPECT_EQ(value, 5);
  std::string textValue;
  EXPECT_TRUE(text.getFeatureProperty(std::string("CurrentTextValue"), textValue));
  EXPECT_EQ(textValue, "default");
  float fractionValue = 0;
  EXPECT_TRUE(fraction.getFeatureProperty(std::string("CurrentFloatValue"), &fractionValue));
  EXPECT_EQ(fractionValue, 2.5F);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kChangeCalled, kUpdateCalled));
}

TEST_F(RestoreDefaultsTest, OtherTypes_KeepTheirValue) {
  DriverFeature& label = feature("Label", 5, "DefaultIntValue", 4);
  DriverFeature& ui = feature("UI", 5, "DefaultIntValue", 4);
  ui.setFeatureProperty(std::string("FeatureType"), 0);
  masterSet().restoreDefaultFeatureValues();
  for (DriverFeature* unchanged : {&label, &ui}) {
    int value = -1;
    EXPECT_TRUE(unchanged->getFeatureProperty(std::string("CurrentIntValue"), &value));
    EXPECT_EQ(value, 0);
  }
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
}

TEST_F(RestoreDefaultsTest, EmptySet_ReportsAllTheSame) {
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  libraryState().ticketLoading = true;
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  libraryState().updateCallback = nullptr;
  masterSet().restoreDefaultFeatureValues();
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(RestoreDefaultsTest, MissingFeature_IsPassedOver) {
  class Holed : public DriverFeatureSet {
   public:
    DriverFeature* fetchFeatureByIndex(int index) override {
      return index == 0 ? nullptr : DriverFeatureSet::fetchFeatureByIndex(index);
    }
  };
  Holed set;
  DriverFeature& skipped = feature("A", 2, "DefaultIntValue", 5);
  DriverFeature& restored = feature("B", 2, "DefaultIntValue", 6);
  set.addFeatureToFeatureList("A", &skipped);
  set.addFeatureToFeatureList("B", &restored);
  set.restoreDefaultFeatureValues();
  int value = -1;
  skipped.getFeatureProperty(std::string("CurrentIntValue"), &value);
  EXPECT_EQ(value, 0);
  restored.getFeatureProperty(std::string("CurrentIntValue"), &value);
  EXPECT_EQ(value, 6);
}

}  // namespace
}  // namespace driver_feature::testing

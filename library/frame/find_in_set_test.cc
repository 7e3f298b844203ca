// Looking features and groups up in the set.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "frame/driver_feature_set.h"
#include "model/driver_feature_static_group.h"
#include "support/model_builder.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FindInSetTest : public ::testing::Test {
 protected:
  FindInSetTest() { host_.registerUpdateCallback(); }

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

TEST_F(FindInSetTest, FindByName_FeatureThenStaticThenDynamic) {
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

TEST_F(FindInSetTest, FindByName_Absent_IsLogged) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.addStaticGroupToFeatureList(&static_);
  EXPECT_EQ(find("A"), nullptr);
  EXPECT_EQ(find("static"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(notFound("A"), notFound("static")));
}

// Of many groups an index is kept, which a new name of any of them ends.
TEST_F(FindInSetTest, FindByName_RenamedGroupAmongMany_IsFoundBeforeLaterOnesOfItsName) {
  Objects<DriverFeatureStaticGroup> objects;
  std::vector<DriverFeatureStaticGroup*> groups;
  for (int i = 0; i < 40; ++i) {
    groups.push_back(&objects.emplace_back("G" + std::to_string(i)));
    set_.addStaticGroupToFeatureList(groups.back());
  }
  // The index is made when names are looked for again.
  for (int i = 0; i < 3; ++i) EXPECT_EQ(find("G30"), groups[30]);
  EXPECT_TRUE(groups[5]->setFeatureProperty(std::string("Name"), std::string("G30")));
  EXPECT_EQ(find("G30"), groups[5]);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
  EXPECT_EQ(find("G5"), nullptr);
}

// A group of a host's class is asked for its name, and with it all the others.
TEST_F(FindInSetTest, FindByName_GroupOfAHostsClass_FindsBothKinds) {
  struct HostsGroup final : DriverFeatureStaticGroup {
    using DriverFeatureStaticGroup::DriverFeatureStaticGroup;
  };
  HostsGroup hosts(std::string("Host's"));
  set_.addStaticGroupToFeatureList(&hosts);
  set_.addDynamicGroupToFeatureList(&dynamic_);
  EXPECT_EQ(find("Host's"), &hosts);
  EXPECT_EQ(find("Dynamic"), &dynamic_);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FindInSetTest, FindByName_UsesTheNameOfFiling) {
  set_.addFeatureToFeatureList("filed", &a_);
  EXPECT_EQ(find("filed"), &a_);
  EXPECT_EQ(find("a"), nullptr);
}

TEST_F(FindInSetTest, FindByAttribute_Features_AreTriedInOrder) {
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

TEST_F(FindInSetTest, FindByAttribute_Group_MatchesTheAttributesOwnName) {
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

TEST_F(FindInSetTest, FindByAttribute_UnreadableProperty_IsComparedWithTheTextBefore) {
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

TEST_F(FindInSetTest, FindByAttribute_AsksForFeaturesThroughTheSlot) {
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

// Groups that return what a test sets.
class UnreadableStaticGroup : public DriverFeatureStaticGroup {
 public:
  using DriverFeatureStaticGroup::getFeatureProperty;
  bool getFeatureProperty(const std::string& /*name*/, std::string& /*value*/) override {
    return false;
  }
};

class TalkativeStaticGroup : public DriverFeatureStaticGroup {
 public:
  using DriverFeatureStaticGroup::getFeatureProperty;
  bool getFeatureProperty(const std::string& /*name*/, std::string& value) override {
    value = "talk";
    return false;
  }
};

class UnreadableDynamicGroup : public DriverFeatureDynamicGroup {
 public:
  using DriverFeatureDynamicGroup::getFeatureProperty;
  bool getFeatureProperty(const std::string& /*name*/, std::string& /*value*/) override {
    return false;
  }
};

TEST_F(FindInSetTest, FindByName_UnreadableGroup_IsComparedWithTheTextBefore) {
  UnreadableStaticGroup unreadable;
  UnreadableDynamicGroup unreadableDynamic;
  set_.addDynamicGroupToFeatureList(&unreadableDynamic);
  // Nothing has been read yet, so the text is empty.
  EXPECT_EQ(find(""), &unreadableDynamic);
  set_.addStaticGroupToFeatureList(&unreadable);
  EXPECT_EQ(find(""), &unreadable);
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(FindInSetTest, FindByName_UnreadableGroup_NeverKeepsTheNameOfAnother) {
  UnreadableStaticGroup unreadable;
  UnreadableDynamicGroup unreadableDynamic;
  set_.addStaticGroupToFeatureList(&static_);
  set_.addStaticGroupToFeatureList(&unreadable);
  set_.addDynamicGroupToFeatureList(&unreadableDynamic);
  EXPECT_EQ(find(""), nullptr);
  EXPECT_EQ(find("Static"), &static_);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(notFound("")));
}

TEST_F(FindInSetTest, FindByAttribute_UnreadableDynamicGroup_KeepsTheFeaturesText) {
  UnreadableDynamicGroup unreadable;
  set_.addFeatureToFeatureList("a", &a_);
  a_.setFeatureProperty(std::string("SNMPOID"), std::string("SNMPOID"));
  set_.addDynamicGroupToFeatureList(&unreadable);
  EXPECT_EQ(find("SNMPOID", "other"), &unreadable);
  // A static group in between has the last word.
  TalkativeStaticGroup talkative;
  set_.addStaticGroupToFeatureList(&talkative);
  EXPECT_EQ(find("SNMPOID", "other"), nullptr);
  EXPECT_EQ(find("talk", "other"), &talkative);
  host_.takeEvents();
  EXPECT_EQ(find("SNMPOID", "talk"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(noAttribute("talk")));
}

TEST_F(FindInSetTest, FindByAttribute_UnknownAttribute_IsLoggedByEachFeature) {
  set_.addFeatureToFeatureList("a", &a_);
  set_.addFeatureToFeatureList("B", &b_);
  const auto unread = [](const std::string& feature) {
    return logLine(3,
                   "DriverFeature::getFeatureProperty(string&) - Unrecognized feature property: "
                   "\"TESKCommand\" for feature \"" +
                       feature + "\".");
  };
  EXPECT_EQ(find("TESKCommand", "x"), nullptr);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(unread("B"), unread("a"), noAttribute("x")));
  EXPECT_EQ(find("TESKCommand", ""), &b_);
  EXPECT_THAT(host_.takeEvents(), ElementsAre(unread("B")));
}

}  // namespace
}  // namespace driver_feature::testing

// What the interfaces' own bodies return, without a log line.

#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/core_feature_group.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::IsEmpty;

// Everything abstract refused; nothing else overridden.
template <class Base>
class Plain : public Base {
 public:
  bool setFeatureProperty(const std::string&, const std::string&) override { return false; }
  bool setFeatureProperty(const std::string&, int) override { return false; }
  bool setFeatureProperty(const std::string&, float) override { return false; }
  bool setFeatureProperty(const std::string&, bool) override { return false; }
  bool getFeatureProperty(const std::string&, std::string&) override { return false; }
  bool getFeatureProperty(const std::string&, int*) override { return false; }
  bool getFeatureProperty(const std::string&, bool*) override { return false; }
  bool getFeatureProperty(const std::string&, float*) override { return false; }
  int getFeatureType() override { return 0; }

  bool isSensitive() const { return this->sensitive_; }
  bool isVisible() const { return this->visible_; }
};

template <class Base>
class PlainWithControl : public Plain<Base> {
 public:
  bool setFeaturePropertyWithConstraintControl(const std::string&, const std::string&,
                                               bool) override {
    return false;
  }
  bool setFeaturePropertyWithConstraintControl(const std::string&, int, bool) override {
    return false;
  }
  bool setFeaturePropertyWithConstraintControl(const std::string&, float, bool) override {
    return false;
  }
  bool setFeaturePropertyWithConstraintControl(const std::string&, bool, bool) override {
    return false;
  }
};

class PlainFeature : public PlainWithControl<IntermediateCoreFeature> {
 public:
  int getFeatureOptionCount() override { return -1; }
  bool applyOptionConstraint(const std::string&, long, bool) override { return false; }
  std::set<long>* getConstraintSet() override { return nullptr; }
  using IntermediateCoreFeature::fetchOptionIndexByName;
  int fetchOptionIndexByName(const std::string&, const std::string&) override { return -1; }
};

class PlainDynamicGroup : public PlainWithControl<IntermediateDynamicFeatureGroup> {
 public:
  bool addStaticGroupToDynamicGroup(AttributeMap&) override { return false; }
  int fetchNumberOfDynamicEntries() override { return 0; }
  IntermediateStaticFeatureGroup* getDynamicEntryByIndex(unsigned) override { return nullptr; }
  bool removeDynamicEntryByIndex(unsigned) override { return false; }
  bool removeAllDynamicEntries() override { return false; }
  bool detectDuplicateRecord(AttributeMap&) override { return false; }
  std::set<long>* fetchSelectedEntries() override { return nullptr; }
  bool addStaticGroupToDynamicGroupWithSort(AttributeMap&, bool) override { return false; }
  bool sortList() override { return false; }
};

template <class Object>
void expectNoOptions(Object& object) {
  EXPECT_EQ(object.fetchNumberOfOptions(), 0);
  EXPECT_EQ(object.fetchOptionIndexByName(std::string("A")), -1);
  EXPECT_EQ(object.fetchCurrentOption(), nullptr);
  EXPECT_EQ(object.fetchOptionByName(std::string("Name"), std::string("A")), nullptr);
  EXPECT_EQ(object.fetchOptionByName(std::string("A")), nullptr);
  EXPECT_EQ(object.fetchOptionByIndex(0), nullptr);
  EXPECT_TRUE(object.isSensitive());
  EXPECT_TRUE(object.isVisible());
}

template <class Object>
void expectNoConstraints(Object& object) {
  EXPECT_TRUE(object.isConstraintSetEmpty());
  EXPECT_FALSE(object.addConstraint(1));
  EXPECT_FALSE(object.removeConstraint(1));
  EXPECT_TRUE(object.isConstraintSetEmpty());
}

TEST(CoreDefaultsTest, ObjectWithoutOptions_ReturnsWithoutLogging) {
  RecordingHost host;
  Plain<CoreFeature> feature;
  expectNoOptions(feature);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(CoreDefaultsTest, FeatureWithoutConstraints_ReturnsWithoutLogging) {
  RecordingHost host;
  PlainFeature feature;
  expectNoOptions(feature);
  expectNoConstraints(feature);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(CoreDefaultsTest, DynamicGroupWithoutConstraints_ReturnsWithoutLogging) {
  RecordingHost host;
  PlainDynamicGroup group;
  expectNoOptions(group);
  expectNoConstraints(group);
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing

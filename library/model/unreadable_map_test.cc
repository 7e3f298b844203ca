// A host whose map of values does not answer for every position. The routine
// defined here takes the place of the platform's own, as a host's would.

#include <dlfcn.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

// The position for which a map returns false.
long unreadablePosition = -1;

using Fetch = bool (*)(const AttributeMap*, const long&, std::string&, std::string&);

constexpr const char* kFetch =
    "_ZNK12AttributeMap26fetchAttributeValueByIndexERKlRNSt7__cxx1112basic_stringIcSt11char_"
    "traitsIcESaIcEEES8_";

}  // namespace
}  // namespace driver_feature::testing

bool AttributeMap::fetchAttributeValueByIndex(const long& index, std::string& name,
                                              std::string& value) const {
  namespace testing = driver_feature::testing;
  static const auto real = reinterpret_cast<testing::Fetch>(dlsym(RTLD_NEXT, testing::kFetch));
  return index != testing::unreadablePosition && real(this, index, name, value);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(UnreadableMapTest, Duplicate_EntryThatCannotBeRead_IsNone) {
  RecordingHost host;
  DriverFeature first(std::string("First"));
  DriverFeature title(std::string("Title"));
  first.setFeatureProperty(std::string("FeatureType"), 2);
  title.setFeatureProperty(std::string("FeatureType"), 3);
  DriverFeatureStaticGroup shape;
  shape.addFeatureToGroup(&first);
  shape.addFeatureToGroup(&title);
  DriverFeatureDynamicGroup group;
  group.addDefaultStaticGroupTemplate(&shape);
  AttributeMap map;
  map["First"] = "1";
  map["Title"] = "a";
  ASSERT_TRUE(group.addStaticGroupToDynamicGroup(map));
  EXPECT_TRUE(group.detectDuplicateRecord(map));
  EXPECT_THAT(host.takeEvents(), IsEmpty());

  unreadablePosition = 1;
  EXPECT_FALSE(group.detectDuplicateRecord(map));
  unreadablePosition = -1;
  EXPECT_THAT(host.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureDynamicGroup::detectDuplicateRecord() - Cannot get "
                                  "test feature name and value from AttributeMap")));
  EXPECT_TRUE(group.detectDuplicateRecord(map));
}

}  // namespace
}  // namespace driver_feature::testing

// What the tests of the loader share: a recording host with an update
// callback, and short ways to build from XML and to read what was built.
#ifndef TESTS_SUPPORT_LOADER_TEST_H_
#define TESTS_SUPPORT_LOADER_TEST_H_

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "loader/feature_builder.h"
#include "loader/group_builder.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"
#include "support/recording_host.h"

#include "AttributeMap.h"
#include "XMLParser.h"

namespace driver_feature::testing {

// What the readers below return for a property that cannot be read.
inline const std::string kUnreadable = "(unreadable)";

inline std::string readText(CoreFeature& object, const std::string& property) {
  std::string value;
  return object.getFeatureProperty(property, value) ? value : kUnreadable;
}

inline std::string readText(CoreOption& option, const std::string& property) {
  std::string value;
  return option.getOptionProperty(property, value) ? value : kUnreadable;
}

// Reads an int, bool or float property; the test fails when it is refused.
template <class Value>
Value read(CoreFeature& object, const std::string& property) {
  Value value{};
  EXPECT_TRUE(object.getFeatureProperty(property, &value)) << property;
  return value;
}

inline bool readFlag(CoreOption& option, const std::string& property) {
  bool value = false;
  EXPECT_TRUE(option.getOptionProperty(property, &value)) << property;
  return value;
}

// The platform's own line for an attribute that does not convert.
inline ::testing::Matcher<std::string> conversionLine(const std::string& attribute,
                                                      const std::string& text) {
  return ::testing::AllOf(::testing::StartsWith("log 3 CommonAPI: "),
                          ::testing::HasSubstr('"' + attribute + '"'),
                          ::testing::HasSubstr('"' + text + '"'));
}

class LoaderTest : public ::testing::Test {
 protected:
  LoaderTest() { host_.registerUpdateCallback(); }

  // Passes a description with these children to the tag handler.
  int load(const std::string& children) {
    return FeatureXMLTagHandler(host_.parse("<Features>" + children + "</Features>"));
  }

  // Build the one element of a text.
  DriverFeature* buildFeature(const std::string& xml) { return build(xml, CreateFeature); }
  DriverFeatureStaticGroup* buildStaticGroup(const std::string& xml) {
    return build(xml, CreateStaticFeatureGroup);
  }
  DriverFeatureDynamicGroup* buildDynamicGroup(const std::string& xml) {
    return build(xml, CreateDynamicFeatureGroup);
  }

  // For an option. Neither is freed, as in the feature lists of a host.
  static void* takeRoom() {
    static std::vector<void*>& rooms = *new std::vector<void*>;
    return rooms.emplace_back(::operator new(sizeof(DriverFeatureOption)));
  }

  std::vector<std::string> takeEvents() { return host_.takeEvents(); }

  // The names of the features that are filed, in the order of the set.
  static std::vector<std::string> featureNames() {
    std::vector<std::string> names;
    for (int i = 0; i < masterSet().fetchNumberOfFeatures(); ++i) {
      names.push_back(readText(*masterSet().fetchFeatureByIndex(i), "Name"));
    }
    return names;
  }

  // The names of the static groups that are filed, in the order of the set.
  static std::vector<std::string> staticGroupNames() {
    std::vector<std::string> names;
    for (int i = 0; masterSet().fetchStaticGroupByIndex(i) != nullptr; ++i) {
      names.push_back(readText(*masterSet().fetchStaticGroupByIndex(i), "Name"));
    }
    return names;
  }

  RecordingHost host_;

 private:
  template <class Object>
  Object* build(const std::string& xml, Object* (*create)(void*, const AttributeMap&)) {
    void* element = host_.parse(xml);
    AttributeMap attributes;
    pParserInstance->attributes(element, attributes);
    return create(element, attributes);
  }
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_LOADER_TEST_H_

// What a feature keeps of its command templates.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "templates/command_template.h"

namespace driver_feature::testing {
namespace {

class PlainTemplateOfFeatureTest : public ::testing::Test {
 protected:
  void set(const std::string& property, const std::string& value) {
    feature_.setFeatureProperty(property, value);
  }

  DriverFeature feature_{std::string("A")};
};

TEST_F(PlainTemplateOfFeatureTest, Store_OneText_IsReadForEachLanguage) {
  set("PSCommand", "ps %s;");
  set("PJLCommand", "pjl %s %%;");
  EXPECT_EQ(feature_.plainTemplate(Property::kPSCommand), readPlainTemplate("ps %s;"));
  EXPECT_EQ(feature_.plainTemplate(Property::kPJLCommand), readPlainTemplate("pjl %s %%;"));
  EXPECT_NE(feature_.plainTemplate(Property::kPSCommand), "");
}

TEST_F(PlainTemplateOfFeatureTest, Store_AnotherTemplate_ReplacesWhatWasRead) {
  for (const char* next : {"first %s", "second %s;", "%d", "%s", ""}) {
    set("PSCommand", next);
    EXPECT_EQ(feature_.plainTemplate(Property::kPSCommand), readPlainTemplate(next)) << next;
  }
}

TEST_F(PlainTemplateOfFeatureTest, Store_Templates_LeavesAllOtherTextsAlone) {
  set("PSCommand", "ps %s;");
  set("PJLCommand", "pjl %s;");
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const auto property = static_cast<Property>(i);
    const bool isSet = property == Property::kName || property == Property::kPSCommand ||
                       property == Property::kPJLCommand;
    EXPECT_EQ(feature_.text(property).empty(), !isSet) << i;
  }
}

}  // namespace
}  // namespace driver_feature::testing

#include "model/driver_feature_option.h"

#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/property_facts.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kTexts = namesOf(kOptionPropertyFacts, Kind::kText);
const std::vector<std::string> kFlags = namesOf(kOptionPropertyFacts, Kind::kBool);

std::string line(const std::string& operation, const std::string& name) {
  return logLine(3, "DriverFeatureOption::" + operation + " - Unrecognized option property:  \"" +
                        name + "\" for option \"A4\".");
}

class OptionTest : public ::testing::Test {
 protected:
  OptionTest() { host_.registerUpdateCallback(); }

  RecordingHost host_;
  DriverFeatureOption option_{std::string("A4")};
};

TEST_F(OptionTest, NewOption_IsAvailableShownAndEmpty) {
  DriverFeatureOption unnamed;
  for (const std::string& name : kTexts) {
    std::string text = "unset";
    EXPECT_TRUE(unnamed.getOptionProperty(name, text)) << name;
    EXPECT_EQ(text, "") << name;
  }
  std::string text;
  EXPECT_TRUE(option_.getOptionProperty(std::string("Name"), text));
  EXPECT_EQ(text, "A4");
  for (const std::string& name : kFlags) {
    bool flag = false;
    EXPECT_TRUE(option_.getOptionProperty(name, &flag)) << name;
    EXPECT_TRUE(flag) << name;
  }
  EXPECT_TRUE(option_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionTest, Text_NamesOfTexts_HaveAPlaceEach) {
  for (const std::string& name : kTexts) {
    EXPECT_TRUE(option_.setOptionProperty(name, "text of " + name));
    EXPECT_TRUE(option_.setOptionProperty(name, "text of " + name));
  }
  for (const std::string& name : kTexts) {
    std::string text;
    EXPECT_TRUE(option_.getOptionProperty(name, text));
    EXPECT_EQ(text, "text of " + name);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionTest, Text_OtherNames_AreLoggedAndRefused) {
  for (const std::string& name : namesBut(kTexts)) {
    std::string text = "kept";
    EXPECT_FALSE(option_.getOptionProperty(name, text));
    EXPECT_EQ(text, "kept");
    EXPECT_FALSE(option_.setOptionProperty(name, std::string("stored")));
    EXPECT_THAT(host_.takeEvents(), ElementsAre(line("getOptionProperty(string&)", name),
                                                line("setOptionProperty(string)", name)));
  }
}

TEST_F(OptionTest, Flag_NamesOfFlags_HaveAPlaceEach) {
  struct Row {
    bool sensitive;
    bool visible;
  };
  for (const Row& row : {Row{false, true}, Row{true, false}, Row{false, false}, Row{true, true}}) {
    EXPECT_TRUE(option_.setOptionProperty(std::string("Sensitivity"), row.sensitive));
    EXPECT_TRUE(option_.setOptionProperty(std::string("Visibility"), row.visible));
    bool sensitive = !row.sensitive;
    bool visible = !row.visible;
    EXPECT_TRUE(option_.getOptionProperty(std::string("Sensitivity"), &sensitive));
    EXPECT_TRUE(option_.getOptionProperty(std::string("Visibility"), &visible));
    EXPECT_EQ(sensitive, row.sensitive);
    EXPECT_EQ(visible, row.visible);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionTest, Flag_OtherNames_AreLoggedAndRefused) {
  for (const std::string& name : namesBut(kFlags)) {
    for (const bool before : {true, false}) {
      bool flag = before;
      EXPECT_FALSE(option_.getOptionProperty(name, &flag));
      EXPECT_EQ(flag, before);
      EXPECT_FALSE(option_.setOptionProperty(name, before));
      EXPECT_THAT(host_.takeEvents(), ElementsAre(line("getOptionProperty(bool*)", name),
                                                  line("setOptionProperty(bool)", name)));
    }
  }
}

TEST_F(OptionTest, Refusal_NamesTheOptionAsItIsCalledNow) {
  option_.setOptionProperty(std::string("Name"), std::string("Letter"));
  option_.setOptionProperty(std::string("Encrypted"), true);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(3,
                                  "DriverFeatureOption::setOptionProperty(bool) - Unrecognized "
                                  "option property:  \"Encrypted\" for option \"Letter\".")));
}

TEST_F(OptionTest, Constraints_AreASetOfIdentifiersFromZero) {
  EXPECT_TRUE(option_.addConstraint(5));
  EXPECT_FALSE(option_.addConstraint(5));
  EXPECT_FALSE(option_.isConstraintSetEmpty());
  EXPECT_FALSE(option_.removeConstraint(6));
  EXPECT_TRUE(option_.removeConstraint(5));
  EXPECT_FALSE(option_.removeConstraint(5));
  EXPECT_TRUE(option_.isConstraintSetEmpty());
  EXPECT_FALSE(option_.addConstraint(-1));
  EXPECT_FALSE(option_.addConstraint(LONG_MIN));
  EXPECT_TRUE(option_.isConstraintSetEmpty());
  EXPECT_TRUE(option_.addConstraint(0));
  EXPECT_TRUE(option_.addConstraint(LONG_MAX));
  EXPECT_TRUE(option_.removeConstraint(0));
  EXPECT_FALSE(option_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing

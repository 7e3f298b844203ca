#include "model/driver_feature_option.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/property_names.h"
#include "support/recording_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> kTexts = {"CLOKey",      "DisplayText",      "Name",
                                         "PJLCommand",  "PSCommand",        "SNMPValue",
                                         "TESKCommand", "TESKTicketCommand"};
const std::vector<std::string> kFlags = {"Sensitivity", "Visibility"};

// Names of options, of features, and of nothing.
std::vector<std::string> everyOptionName() {
  std::vector<std::string> names = everyName();
  names.insert(names.end(), kTexts.begin(), kTexts.end());
  return names;
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::string line(const std::string& operation, const std::string& name) {
  return logLine(3, "DriverFeatureOption::" + operation + " - Unrecognized option property:  \"" +
                        name + "\" for option \"A4\".");
}

// What all ten properties hold.
std::vector<std::string> snapshotOf(DriverFeatureOption& option) {
  std::vector<std::string> values;
  for (const std::string& name : kTexts) {
    EXPECT_TRUE(option.getOptionProperty(name, values.emplace_back("unread"))) << name;
  }
  for (const std::string& name : kFlags) {
    bool flag = false;
    EXPECT_TRUE(option.getOptionProperty(name, &flag)) << name;
    values.emplace_back(flag ? "true" : "false");
  }
  return values;
}

// The same with another value for one of them.
std::vector<std::string> withValue(std::vector<std::string> values, const std::string& name,
                                   const std::string& value) {
  std::vector<std::string> names = kTexts;
  names.insert(names.end(), kFlags.begin(), kFlags.end());
  const auto at = std::find(names.begin(), names.end(), name) - names.begin();
  values.at(static_cast<std::size_t>(at)) = value;
  return values;
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
    EXPECT_TRUE(option_.getOptionProperty(name, text)) << name;
    EXPECT_EQ(text, name == "Name" ? "A4" : "") << name;
  }
  for (const std::string& name : kFlags) {
    bool flag = false;
    EXPECT_TRUE(option_.getOptionProperty(name, &flag)) << name;
    EXPECT_TRUE(flag) << name;
  }
  EXPECT_TRUE(option_.isConstraintSetEmpty());
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(OptionTest, Text_EveryName_IsStoredOrLogged) {
  for (const std::string& name : everyOptionName()) {
    SCOPED_TRACE(name);
    DriverFeatureOption option(std::string("A4"));
    const std::vector<std::string> before = snapshotOf(option);
    std::string text = "kept";
    if (!contains(kTexts, name)) {
      EXPECT_FALSE(option.getOptionProperty(name, text));
      EXPECT_EQ(text, "kept");
      EXPECT_FALSE(option.setOptionProperty(name, std::string("stored")));
      EXPECT_THAT(host_.takeEvents(), ElementsAre(line("getOptionProperty(string&)", name),
                                                  line("setOptionProperty(string)", name)));
      EXPECT_EQ(snapshotOf(option), before);
      continue;
    }
    EXPECT_TRUE(option.setOptionProperty(name, std::string("stored")));
    EXPECT_TRUE(option.setOptionProperty(name, std::string("stored")));
    EXPECT_EQ(snapshotOf(option), withValue(before, name, "stored"));
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
  }
}

TEST_F(OptionTest, Flag_EveryName_IsStoredOrLogged) {
  for (const std::string& name : everyOptionName()) {
    SCOPED_TRACE(name);
    DriverFeatureOption option(std::string("A4"));
    const std::vector<std::string> before = snapshotOf(option);
    if (!contains(kFlags, name)) {
      for (const bool output : {true, false}) {
        bool flag = output;
        EXPECT_FALSE(option.getOptionProperty(name, &flag));
        EXPECT_EQ(flag, output);
        EXPECT_FALSE(option.setOptionProperty(name, output));
        EXPECT_THAT(host_.takeEvents(), ElementsAre(line("getOptionProperty(bool*)", name),
                                                    line("setOptionProperty(bool)", name)));
      }
      EXPECT_EQ(snapshotOf(option), before);
      continue;
    }
    EXPECT_TRUE(option.setOptionProperty(name, false));
    EXPECT_TRUE(option.setOptionProperty(name, false));
    EXPECT_EQ(snapshotOf(option), withValue(before, name, "false"));
    EXPECT_TRUE(option.setOptionProperty(name, true));
    EXPECT_EQ(snapshotOf(option), before);
    EXPECT_THAT(host_.takeEvents(), IsEmpty());
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

#include "host/description/switch_name.h"

#include <gtest/gtest.h>

namespace driver_feature::host {

namespace {

TEST(SwitchNameTest, FeatureThatIsOnOrOff_IsASwitchOfWhatIsBeforeTheDot) {
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{"False", "True"}, std::vector<std::string>{"True", "False"}}) {
    const auto parts = switchNameOf("Staple.Left.Top", options);
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->thing, "Staple");
    EXPECT_EQ(parts->choice, "Left.Top");
  }
}

TEST(SwitchNameTest, OtherFeatures_AreNoSwitches) {
  for (const char* name : {"Staple", ".Left", "Staple."}) {
    EXPECT_FALSE(switchNameOf(name, {"False", "True"})) << name;
  }
  using Options = std::vector<std::string>;
  for (const Options& options : {Options{}, Options{"True"}, Options{"Off", "On"},
                                 Options{"False", "False"}, Options{"False", "True", "Both"}}) {
    EXPECT_FALSE(switchNameOf("Staple.Left", options));
  }
}

}  // namespace

}  // namespace driver_feature::host

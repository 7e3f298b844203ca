#include "model/messages.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "frame/driver_feature_set.h"
#include "support/recording_host.h"

#include "Log.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;

TEST(MessagesTest, Fixed_EachLevel_IsLoggedAndLeavesTheBuffer) {
  RecordingHost host;
  LogMessageBuffer = "untouched";
  logFixed(Level::kError, "one");
  logFixed(Level::kMisuse, "two {}");
  logFixed(Level::kWarning, "three %s");
  logFixed(Level::kInformation, "");
  EXPECT_THAT(host.takeEvents(), ElementsAre(logLine(1, "one"), logLine(2, "two {}"),
                                             logLine(3, "three %s"), logLine(4, "")));
  EXPECT_EQ(LogMessageBuffer.utf8(), "untouched");
}

TEST(MessagesTest, Composed_Inserts_AreCopiedAsTheyAre) {
  RecordingHost host;
  logComposed(Level::kError, "none");
  EXPECT_EQ(LogMessageBuffer.utf8(), "none");
  logComposed(Level::kMisuse, "{}", std::string("a{}b"));
  logComposed(Level::kWarning, "<{}{}>", std::string("{}"), std::string());
  logComposed(Level::kInformation, "{} and {}.", std::string("x\0y", 3), "%s \xE9");
  const std::string last("x\0y and %s \xE9.", 13);
  EXPECT_EQ(LogMessageBuffer.utf8(), last);
  EXPECT_THAT(host.takeEvents(), ElementsAre(logLine(1, "none"), logLine(2, "a{}b"),
                                             logLine(3, "<{}>"), logLine(4, last)));
}

// What every class's lines hold of names, and that they pass the buffer.
TEST(MessagesTest, Names_AnyBytes_AppearInTheLineAndTheBuffer) {
  RecordingHost host;
  const std::string odd("\"{}%n\0\xFF", 7);
  const auto expectLine = [&](int level, const std::string& line) {
    EXPECT_THAT(host.takeEvents(), ElementsAre(logLine(level, line)));
    EXPECT_EQ(LogMessageBuffer.utf8(), line);
  };
  DriverFeature feature(odd);
  EXPECT_FALSE(feature.setFeatureProperty(odd, 1));
  expectLine(3, "DriverFeature::setFeatureProperty(int) - Unrecognized feature property:  \"" +
                    odd + "\" for feature \"" + odd + ".");
  EXPECT_TRUE(feature.setFeatureProperty(std::string("CurrentTextValue"), odd));
  expectLine(3,
             "DriverFeature::setFeatureProperty(string) - Attempt to set feature property:  "
             "\"CurrentTextValue\" for feature \"" +
                 odd + "\" to " + odd + "where the feature is not a text valued feature.");
  EXPECT_EQ(feature.fetchOptionByName(odd), nullptr);
  expectLine(3, "DriverFeature::fetchOptionByName() - Option \"" + odd + "\" of feature \"" + odd +
                    "\" was not found.");
  DriverFeatureOption option(odd);
  EXPECT_FALSE(option.setOptionProperty(odd, true));
  expectLine(3, "DriverFeatureOption::setOptionProperty(bool) - Unrecognized option property:  \"" +
                    odd + "\" for option \"" + odd + "\".");
  DriverFeatureSet set;
  EXPECT_EQ(set.FindFeatureInFeatureList(odd), nullptr);
  expectLine(3, "FindFeatureInFeatureList() - Did not find feature \"" + odd + "\".");
}

}  // namespace
}  // namespace driver_feature::testing

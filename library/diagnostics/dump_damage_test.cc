// The dump of a set in which something is missing or cannot be read.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/private_member.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

namespace driver_feature::testing {

struct StaticGroups {
  using Type = std::vector<DriverFeatureStaticGroup*> FeatureList::*;
  friend Type openMember(StaticGroups);
};
template struct PrivateMember<StaticGroups, &FeatureList::staticGroups_>;

struct DynamicGroups {
  using Type = std::vector<DriverFeatureDynamicGroup*> FeatureList::*;
  friend Type openMember(DynamicGroups);
};
template struct PrivateMember<DynamicGroups, &FeatureList::dynamicGroups_>;

namespace {

using ::testing::IsEmpty;

std::string dump() {
  ::testing::internal::CaptureStdout();
  masterSet().dumpFeatureListValues();
  return ::testing::internal::GetCapturedStdout();
}

// An option that returns only its PostScript command.
class HalfReadableOption : public UnreadableOption {
 public:
  using UnreadableOption::getOptionProperty;
  bool getOptionProperty(const std::string& name, std::string& value) override {
    if (name != "PSCommand") return false;
    value = "a4";
    return true;
  }
};

TEST(DumpDamageTest, OptionThatRefusesReads_ShowsWhatItReturns) {
  RecordingHost host;
  ModelBuilder model;
  DriverFeature& media = model.feature("Media", 1);
  HalfReadableOption option;
  media.addOptionToFeature(&option);
  host.takeEvents();
  EXPECT_EQ(dump(),
            "\n\"Media\" (MultiSelect/enabled/visible)Int:0 (not in a group)"
            "\n\t\"\" (disabled)\n\t\t\"PS Command\": \"a4\"\n\n\n");
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

TEST(DumpDamageTest, GroupsGone_ArePassedOver) {
  RecordingHost host;
  ModelBuilder model;
  for (const char* name : {"A", "B"}) {
    model.group(name, {});
    model.dynamicGroup(name);
  }
  (masterSet().list().*openMember(StaticGroups{}))[0] = nullptr;
  (masterSet().list().*openMember(DynamicGroups{}))[0] = nullptr;
  EXPECT_EQ(dump(),
            "\n\nStatic Feature Group:B:Static Group Contains 0 Features\n"
            "Dynamic Feature Group:B:0(, )\n\n");
  EXPECT_THAT(host.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing

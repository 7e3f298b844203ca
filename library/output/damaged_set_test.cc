// A set that has lost a group, written in each language.

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/driver_feature_set.h"
#include "support/model_builder.h"
#include "support/private_member.h"
#include "support/recording_host.h"

namespace driver_feature::testing {

struct StaticGroups {
  using Type = std::vector<DriverFeatureStaticGroup*> FeatureList::*;
  friend Type openMember(StaticGroups);
};
template struct PrivateMember<StaticGroups, &FeatureList::staticGroups_>;

namespace {

using ::testing::ElementsAre;

// Three groups, the second of which gets lost.
class DamagedSetTest : public ::testing::Test {
 protected:
  DamagedSetTest() {
    for (const char* name : {"A", "B", "C"}) {
      model_.group(name, {{"PSCommand", name}, {"PJLCommand", name}});
    }
    (masterSet().list().*openMember(StaticGroups{}))[1] = nullptr;
  }

  static std::string serialize(int type) {
    std::string output;
    masterSet().serialize(output, type, false, nullptr, nullptr);
    return output;
  }

  RecordingHost host_;
  ModelBuilder model_;
};

TEST_F(DamagedSetTest, PrinterLanguages_GroupGone_CountsFromZeroAndGoesOn) {
  for (const int type : {0, 1}) {
    EXPECT_EQ(serialize(type), "AC") << type;
    EXPECT_THAT(host_.takeEvents(),
                ElementsAre(logLine(2, "serialize() - Cannot get reference to static group 1")))
        << type;
  }
}

TEST_F(DamagedSetTest, Ticket_GroupGone_CountsFromOneAndGoesOn) {
  serialize(2);
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(4, "serialize() - StaticGroup 0 has no VORN attributes"),
                          logLine(2, "serialize() - Cannot get reference to static group 2"),
                          logLine(4, "serialize() - StaticGroup 0 has no VORN attributes")));
}

}  // namespace
}  // namespace driver_feature::testing

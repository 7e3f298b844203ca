// The index of names that a load leaves behind.

#include <string>

#include "model/feature_index.h"
#include "support/loader_test.h"
#include "support/private_member.h"

namespace driver_feature::testing {

struct Index {
  using Type = FeatureIndex DriverFeatureSet::*;
  friend Type openMember(Index);
};
template struct PrivateMember<Index, &DriverFeatureSet::index_>;

namespace {

class NameIndexTest : public LoaderTest {
 protected:
  // Looks a name up in the index alone: the map that it would search in its
  // place is empty.
  static DriverFeature* findInIndex(const std::string& name) {
    return (masterSet().*openMember(Index{})).find({}, name);
  }
};

TEST_F(NameIndexTest, Load_Done_ListsAllFeatures) {
  ASSERT_EQ(FeatureXMLTagHandler(host_.parse(R"(<Features>
    <Feature FeatureType="IntEntry" Name="b"/>
    <FeatureStaticGroup Name="g"><Feature FeatureType="IntEntry" Name="a"/></FeatureStaticGroup>
  </Features>)")),
            1);
  EXPECT_EQ(findInIndex("a"), masterSet().fetchFeatureByIndex(0));
  EXPECT_EQ(findInIndex("b"), masterSet().fetchFeatureByIndex(1));
  EXPECT_EQ(findInIndex("g"), nullptr);
}

}  // namespace
}  // namespace driver_feature::testing

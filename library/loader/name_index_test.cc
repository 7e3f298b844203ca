// The index of names that a load leaves behind.

#include <string>

#include "model/feature_list.h"
#include "support/loader_test.h"
#include "support/private_member.h"

namespace driver_feature::testing {

struct Index {
  using Type =
      std::unordered_map<std::string_view, const FeatureList::Features::value_type*> FeatureList::*;
  friend Type openMember(Index);
};
template struct PrivateMember<Index, &FeatureList::index_>;

namespace {

class NameIndexTest : public LoaderTest {};

TEST_F(NameIndexTest, Load_Done_ListsAllFeatures) {
  ASSERT_EQ(FeatureXMLTagHandler(host_.parse(R"(<Features>
    <Feature FeatureType="IntEntry" Name="b"/>
    <FeatureStaticGroup Name="g"><Feature FeatureType="IntEntry" Name="a"/></FeatureStaticGroup>
  </Features>)")),
            1);
  const auto& index = masterSet().list().*openMember(Index{});
  ASSERT_EQ(index.size(), 2U);
  EXPECT_EQ(index.at("a")->second, masterSet().fetchFeatureByIndex(0));
  EXPECT_EQ(index.at("b")->second, masterSet().fetchFeatureByIndex(1));
}

}  // namespace
}  // namespace driver_feature::testing

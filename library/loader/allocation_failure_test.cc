// What the entry points and the builders do when there is no memory.

#include <array>
#include <new>
#include <string>

#include "frame/state.h"
#include "support/failing_memory.h"
#include "support/loader_test.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AllocationFailureTest : public LoaderTest {
 protected:
  ~AllocationFailureTest() override {
    failingMemory.stop();
    failingNothrowMemory.stop();
  }

  AttributeMap attributes_ = [] {
    AttributeMap attributes;
    attributes["Name"] = "A";
    attributes["FeatureType"] = "no type";
    return attributes;
  }();
};

TEST_F(AllocationFailureTest, MasterFeatureList_NoMemory_PassesTheFailureOn) {
  failingMemory.failAfter(0);
  EXPECT_THROW(GetMasterFeatureList(), std::bad_alloc);
  EXPECT_EQ(libraryState().masterSet, nullptr);
  // The next call is a first call again.
  EXPECT_NE(GetMasterFeatureList(), nullptr);
}

TEST_F(AllocationFailureTest, TagHandler_NoMemory_ReturnsZeroAndThrowsNothing) {
  void* element = host_.parse(R"(<Features><Feature FeatureType="UIOnly" Name="A"/></Features>)");
  failingMemory.failAfter(0);
  int result = 1;
  EXPECT_NO_THROW(result = FeatureXMLTagHandler(element));
  EXPECT_EQ(result, 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

// Names that do not fit into a string object are copied into memory of their
// own everywhere.
constexpr const char* kDescription = R"(<Features>
  <BaseFeatureInfo DefaultCallbackHandler="RecordUpdate"/>
  <Feature FeatureType="MultiSelect" Name="A list with a long name"
           PSCommand="a command that is long" DefaultValue="an option with a long name">
    <Option Name="an option with a long name" PJLCommand="a command that is long"/>
  </Feature>
  <Feature FeatureType="IntEntry" Name="A number with a long name" DefaultValue="17"/>
  <FeatureDynamicGroup Name="A group with a long name" PSCommand="a command that is long">
    <FeatureStaticGroup Name="A template with a long name">
      <Feature FeatureType="FloatEntry" Name="A fraction with a long name" DefaultValue="1.5"/>
    </FeatureStaticGroup>
  </FeatureDynamicGroup>
</Features>)";

TEST_F(AllocationFailureTest, TagHandler_AnyAllocationFails_ReturnsZeroAndLeavesAUsableSet) {
  void* element = host_.parse(kDescription);
  // Each attempt begins without a set. Those of before stay in sight of a check
  // for leaks.
  static std::array<DriverFeatureSet*, 1000> sets;
  std::size_t attempts = 0;
  const long failures = failEachAllocation([element, &attempts] {
    sets.at(attempts++) = libraryState().masterSet;
    libraryState().masterSet = nullptr;
    int result = -1;
    try {
      result = FeatureXMLTagHandler(element);
    } catch (const std::bad_alloc&) {
      // Only without a set; there, the failure is passed on.
      EXPECT_EQ(libraryState().masterSet, nullptr);
      return;
    }
    if (!failingMemory.hasFailed()) {
      EXPECT_EQ(result, 1);
      return;
    }
    EXPECT_EQ(result, 0);
    // What there is of the model can be walked.
    std::string output;
    masterSet().serialize(output, 1, false, nullptr, nullptr);
  });
  // Each element needs one for itself and one for its name, at the least.
  EXPECT_GT(failures, 12);
  EXPECT_EQ(masterSet().fetchNumberOfFeatures(), 3);
  EXPECT_EQ(masterSet().list().staticGroupCount(), 1);
  EXPECT_EQ(masterSet().list().dynamicGroupCount(), 1);
}

TEST_F(AllocationFailureTest, CreateFeature_NoMemory_FailsBeforeTheKeywordIsCompared) {
  failingNothrowMemory.failAfter(0);
  EXPECT_EQ(CreateFeature(nullptr, attributes_), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(1, "CreateFeature() - Cannot create feature object")));
}

TEST_F(AllocationFailureTest, CreateStaticFeatureGroup_NoMemory_Fails) {
  void* element = host_.parse("<FeatureStaticGroup/>");
  failingNothrowMemory.failAfter(0);
  EXPECT_EQ(CreateStaticFeatureGroup(element, attributes_), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateStaticFeatureGroup() - Cannot create feature group object")));
}

TEST_F(AllocationFailureTest, CreateDynamicFeatureGroup_NoMemory_Fails) {
  void* element = host_.parse("<FeatureDynamicGroup/>");
  failingNothrowMemory.failAfter(0);
  EXPECT_EQ(CreateDynamicFeatureGroup(element, attributes_), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateDynamicFeatureGroup() - Cannot create feature group object")));
}

}  // namespace
}  // namespace driver_feature::testing

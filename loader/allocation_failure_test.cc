// What the entry points and the builders do when there is no memory.

#include <cstdlib>
#include <new>

#include "frame/state.h"
#include "support/loader_test.h"

namespace {

// Each makes the next allocation of its kind fail, once.
bool failNext = false;
bool failNextNothrow = false;

}  // namespace

// Inlined into callers, the pairs would look mismatched to GCC.
#define NOINLINE __attribute__((noinline))

NOINLINE void* operator new(std::size_t size) {
  if (failNext) {
    failNext = false;
    throw std::bad_alloc();
  }
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

NOINLINE void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (failNextNothrow) {
    failNextNothrow = false;
    return nullptr;
  }
  return std::malloc(size != 0 ? size : 1);
}

NOINLINE void operator delete(void* memory) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AllocationFailureTest : public LoaderTest {
 protected:
  ~AllocationFailureTest() override { failNext = failNextNothrow = false; }

  AttributeMap attributes_ = [] {
    AttributeMap attributes;
    attributes["Name"] = "A";
    attributes["FeatureType"] = "no type";
    return attributes;
  }();
};

TEST_F(AllocationFailureTest, MasterFeatureList_NoMemory_PassesTheFailureOn) {
  failNext = true;
  EXPECT_THROW(GetMasterFeatureList(), std::bad_alloc);
  EXPECT_EQ(libraryState().masterSet, nullptr);
  // The next call is a first call again.
  EXPECT_NE(GetMasterFeatureList(), nullptr);
}

TEST_F(AllocationFailureTest, TagHandler_NoMemory_AnswersZeroAndThrowsNothing) {
  void* element = host_.parse(R"(<Features><Feature FeatureType="UIOnly" Name="A"/></Features>)");
  failNext = true;
  int result = 1;
  EXPECT_NO_THROW(result = FeatureXMLTagHandler(element));
  EXPECT_EQ(result, 0);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(AllocationFailureTest, CreateFeature_NoMemory_FailsBeforeTheKeywordIsCompared) {
  failNextNothrow = true;
  EXPECT_EQ(CreateFeature(nullptr, attributes_), nullptr);
  EXPECT_THAT(takeEvents(),
              ElementsAre(logLine(1, "CreateFeature() - Cannot create feature object")));
}

TEST_F(AllocationFailureTest, CreateStaticFeatureGroup_NoMemory_Fails) {
  void* element = host_.parse("<FeatureStaticGroup/>");
  failNextNothrow = true;
  EXPECT_EQ(CreateStaticFeatureGroup(element, attributes_), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateStaticFeatureGroup() - Cannot create feature group object")));
}

TEST_F(AllocationFailureTest, CreateDynamicFeatureGroup_NoMemory_Fails) {
  void* element = host_.parse("<FeatureDynamicGroup/>");
  failNextNothrow = true;
  EXPECT_EQ(CreateDynamicFeatureGroup(element, attributes_), nullptr);
  EXPECT_THAT(
      takeEvents(),
      ElementsAre(logLine(1, "CreateDynamicFeatureGroup() - Cannot create feature group object")));
}

}  // namespace
}  // namespace driver_feature::testing

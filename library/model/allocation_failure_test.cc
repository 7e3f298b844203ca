// What the model does when there is no memory, and when an option of the
// host's own throws.

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/feature_list.h"
#include "model/own_names.h"
#include "support/failing_memory.h"
#include "support/model_builder.h"
#include "support/recording_host.h"
#include "support/scripted_feature.h"

#include "AttributeMap.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ModelAllocationFailureTest : public ::testing::Test {
 protected:
  ModelAllocationFailureTest() {
    list_.addOptionToFeature(&first_);
    list_.addOptionToFeature(&second_);
    shape_.addFeatureToGroup(&list_);
    group_.addDefaultStaticGroupTemplate(&shape_);
    values_["a list with a long name"] = "the second of two options";
    host_.takeEvents();
  }

  ~ModelAllocationFailureTest() override {
    failingMemory.stop();
    failingNothrowMemory.stop();
  }

  RecordingHost host_;
  DriverFeatureOption first_{std::string("the first of two options")};
  DriverFeatureOption second_{std::string("the second of two options")};
  DriverFeature list_{std::string("a list with a long name")};
  DriverFeatureStaticGroup shape_{std::string("a template with a long name")};
  DriverFeatureDynamicGroup group_{std::string("a group with a long name")};
  AttributeMap values_;
};

TEST_F(ModelAllocationFailureTest, AddRecord_NoMemoryForTheRecord_IsRefused) {
  failingNothrowMemory.failAfter(0);
  EXPECT_FALSE(group_.addStaticGroupToDynamicGroup(values_));
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2,
                                  "addStaticGroupToDynamicGroupWithSort() - Cannot create static "
                                  "group copy")));
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
}

TEST_F(ModelAllocationFailureTest, AddRecord_AnyAllocationFails_AddsNothing) {
  const long failures = failEachAllocation([this] {
    try {
      EXPECT_TRUE(group_.addStaticGroupToDynamicGroup(values_));
      EXPECT_FALSE(failingMemory.hasFailed()) << "the failure has been swallowed";
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 0);
    }
  });
  // The copy, its name, two options and their names, at the least.
  EXPECT_GE(failures, 6);
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 1);
  EXPECT_EQ(group_.getDynamicEntryByIndex(0), &shape_);
  int position = 0;
  list_.getFeatureProperty(std::string("CurrentIntValue"), &position);
  EXPECT_EQ(position, 1);
}

TEST_F(ModelAllocationFailureTest, AddFeature_AnyAllocationFails_AddsNothing) {
  FeatureList list;
  const auto name = [](int number) {
    return "a feature with a long name " + std::to_string(number);
  };
  for (int i = 0; i < 40; ++i) {
    const long failures = failEachAllocation([&] {
      try {
        EXPECT_TRUE(list.addFeature(name(i), &list_));
        EXPECT_FALSE(failingMemory.hasFailed()) << "the failure has been swallowed";
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(list.featureCount(), i);
      }
    });
    EXPECT_GE(failures, 1);
    for (int earlier = 0; earlier <= i; ++earlier) {
      EXPECT_EQ(list.findFeature(name(earlier)), &list_) << earlier;
      EXPECT_EQ(list.featureAt(earlier), &list_) << earlier;
    }
  }
}

TEST_F(ModelAllocationFailureTest, OwnNames_NoMemoryForTheIndex_FindNothingUntilThereIs) {
  const auto nameAt = [](int position) -> std::optional<std::string_view> {
    return position % 2 == 0 ? "even" : "odd";
  };
  OwnNames names;
  EXPECT_EQ(names.find("odd", 100, nameAt), 1);
  const long failures = failEachAllocation([&] {
    const auto found = names.find("odd", 100, nameAt);
    EXPECT_EQ(found, failingMemory.hasFailed() ? std::nullopt : std::optional(1));
  });
  // The index, and what it holds.
  EXPECT_GE(failures, 2);
}

// An option that fails each read or, when set so, throws at each.
class ThrowingOption : public UnreadableOption {
 public:
  bool throws = false;

  bool getOptionProperty(const std::string& name, std::string& /*value*/) override {
    return refuse(name);
  }
  bool getOptionProperty(const std::string& name, bool* /*value*/) override { return refuse(name); }

 private:
  bool refuse(const std::string& name) const {
    if (throws) throw std::runtime_error(name);
    return false;
  }
};

// Calls an operation; returns the text of what it throws.
template <class Operation>
std::string thrownBy(const Operation& operation) {
  try {
    operation();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "(nothing)";
}

TEST_F(ModelAllocationFailureTest, Options_OneThrows_PassesItOnAndIsAskedAgain) {
  DriverFeature list(std::string("List"));
  ThrowingOption option;
  list.addOptionToFeature(&option);
  list.addOptionToFeature(&first_);
  host_.takeEvents();
  option.throws = true;
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(thrownBy([&list] { DriverFeature copy(&list); }), "Name");
    EXPECT_EQ(thrownBy([&list] { list.fetchOptionIndexByName(std::string("A")); }), "Name");
    int position = -1;
    EXPECT_EQ(thrownBy([&] { list.findNextAvailableOption(&position); }), "Sensitivity");
    EXPECT_EQ(position, -1);
  }
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

}  // namespace
}  // namespace driver_feature::testing

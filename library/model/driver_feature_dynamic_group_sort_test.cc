// The order of records.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "support/recording_host.h"

#include "AttributeMap.h"

namespace {

// What the sort routine of this program does; a test sets it.
std::function<int(AttributeMap&, AttributeMap&)> comparison;

}  // namespace

extern "C" int CompareRecords(AttributeMap& first, AttributeMap& second) {
  return comparison(first, second);
}

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string textOf(AttributeMap& map) {
  std::string text;
  for (long i = 0; i < map.size(); ++i) {
    std::string name;
    std::string value;
    map.fetchAttributeValueByIndex(i, name, value);
    text += (text.empty() ? "" : ",") + name + "=" + value;
  }
  return text;
}

class SortTest : public ::testing::Test {
 protected:
  SortTest() {
    for (DriverFeature* member : {&page_, &mark_}) {
      member->setFeatureProperty(std::string("FeatureType"), 3);
      shape_.addFeatureToGroup(member);
    }
    group_.addDefaultStaticGroupTemplate(&shape_);
    group_.setFeatureProperty(std::string("SortFunctionName"), std::string("CompareRecords"));
    comparison = [](AttributeMap& first, AttributeMap& second) {
      return first["Page"].compare(second["Page"]);
    };
  }

  ~SortTest() override { comparison = nullptr; }

  bool add(const std::string& page, const std::string& mark = "", bool sort = true) {
    AttributeMap map;
    map["Page"] = page;
    map["Mark"] = mark;
    return group_.addStaticGroupToDynamicGroupWithSort(map, sort);
  }

  // The records in their order, as "page+mark".
  std::vector<std::string> records() {
    std::vector<std::string> all;
    for (int i = 0; i < group_.fetchNumberOfDynamicEntries(); ++i) {
      group_.getDynamicEntryByIndex(static_cast<unsigned>(i));
      std::string page;
      std::string mark;
      page_.getFeatureProperty(std::string("ValueString"), page);
      mark_.getFeatureProperty(std::string("ValueString"), mark);
      all.push_back(page + mark);
    }
    return all;
  }

  // From now on every call is noted, as "first|second", before it is answered.
  void noteCalls(std::vector<std::string>& calls) {
    comparison = [&calls](AttributeMap& first, AttributeMap& second) {
      calls.push_back(textOf(first) + '|' + textOf(second));
      return first["Page"].compare(second["Page"]);
    };
  }

  RecordingHost host_;
  DriverFeature page_{std::string("Page")};
  DriverFeature mark_{std::string("Mark")};
  DriverFeatureStaticGroup shape_;
  DriverFeatureDynamicGroup group_{std::string("Pages")};
};

TEST_F(SortTest, Add_AnyOrder_IsKeptAscending) {
  for (const char* page : {"3", "1", "5", "2", "4"}) EXPECT_TRUE(add(page));
  EXPECT_THAT(records(), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SortTest, Add_EqualRecords_StayInTheirOrder) {
  add("2", "a");
  add("1", "a");
  add("2", "b");
  add("1", "b");
  EXPECT_THAT(records(), ElementsAre("1a", "1b", "2a", "2b"));
}

TEST_F(SortTest, Add_RoutineThatNeverSwaps_KeepsTheOrderOfAddition) {
  comparison = [](AttributeMap&, AttributeMap&) { return 0; };
  for (const char* page : {"3", "1", "2"}) add(page);
  EXPECT_THAT(records(), ElementsAre("3", "1", "2"));
  comparison = [](AttributeMap&, AttributeMap&) { return -5; };
  add("0");
  EXPECT_THAT(records(), ElementsAre("3", "1", "2", "0"));
}

TEST_F(SortTest, Add_SortOff_GoesLastUnsorted) {
  add("2");
  add("1", "", false);
  EXPECT_THAT(records(), ElementsAre("2", "1"));
  add("0");
  EXPECT_THAT(records(), ElementsAre("0", "1", "2"));
}

TEST_F(SortTest, Add_NoRoutineNamed_GoesLastWithoutLogging) {
  group_.setFeatureProperty(std::string("SortFunctionName"), std::string(""));
  add("2");
  add("1");
  EXPECT_THAT(records(), ElementsAre("2", "1"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SortTest, Add_UnknownRoutine_IsLookedUpAgainAtEachAdd) {
  host_.registerUpdateCallback();
  group_.setFeatureProperty(std::string("SortFunctionName"), std::string("NoSuchRoutine"));
  const std::string line =
      logLine(2,
              "addStaticGroupToDynamicGroupWithSort:  Failed to load custom sort callback:  "
              "NoSuchRoutine");
  EXPECT_TRUE(add("2"));
  EXPECT_TRUE(add("1"));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line, kUpdateCalled, line, kUpdateCalled));
  EXPECT_TRUE(add("0", "", false));
  EXPECT_THAT(host_.takeEvents(), ElementsAre(kUpdateCalled));
  EXPECT_THAT(records(), ElementsAre("2", "1", "0"));
  group_.setFeatureProperty(std::string("SortFunctionName"), std::string("CompareRecords"));
  EXPECT_TRUE(add("3"));
  EXPECT_THAT(records(), ElementsAre("0", "1", "2", "3"));
}

TEST_F(SortTest, SortList_WithoutRoutine_ReturnsByTheNumberOfRecords) {
  EXPECT_TRUE(group_.sortList());
  add("2", "", false);
  EXPECT_TRUE(group_.sortList());
  add("1", "", false);
  EXPECT_FALSE(group_.sortList());
  EXPECT_THAT(records(), ElementsAre("2", "1"));
  EXPECT_THAT(host_.takeEvents(), IsEmpty());
}

TEST_F(SortTest, SortList_ThreeRecords_ComparesNeighboursWithAShrinkingBound) {
  add("0");  // Loads the routine.
  add("3", "x", false);
  add("2", "y", false);
  add("1", "z", false);
  std::vector<std::string> calls;
  noteCalls(calls);
  EXPECT_TRUE(group_.sortList());
  EXPECT_THAT(calls, ElementsAre("Mark=,Page=0|Mark=x,Page=3",   //
                                 "Mark=x,Page=3|Mark=y,Page=2",  // Swapped.
                                 "Mark=x,Page=3|Mark=z,Page=1",  // Swapped; the bound shrinks.
                                 "Mark=,Page=0|Mark=y,Page=2",   //
                                 "Mark=y,Page=2|Mark=z,Page=1",  // Swapped; shrinks again.
                                 "Mark=,Page=0|Mark=z,Page=1"));
  EXPECT_THAT(records(), ElementsAre("0", "1z", "2y", "3x"));
}

TEST_F(SortTest, SortList_WithoutSwap_KeepsWhatTheRoutineLeavesInTheMaps) {
  add("1");
  add("2", "", false);
  add("3", "", false);
  std::vector<std::string> calls;
  comparison = [&calls](AttributeMap& first, AttributeMap& second) {
    calls.push_back(textOf(first) + '|' + textOf(second));
    first["Left"] = "behind";
    second["Also"] = "left";
    return calls.size() == 2 ? 1 : 0;
  };
  EXPECT_TRUE(group_.sortList());
  // Cleared by the swap after the second call only.
  EXPECT_THAT(calls, ElementsAre("Mark=,Page=1|Mark=,Page=2",
                                 "Left=behind,Mark=,Page=2|Also=left,Mark=,Page=3",
                                 "Mark=,Page=1|Mark=,Page=3"));
}

// The value is read anew, with its log line, and is empty.
TEST_F(SortTest, SortList_ListWithoutCurrentOption_IsInTheMaps) {
  mark_.setFeatureProperty(std::string("FeatureType"), 1);
  mark_.setFeatureProperty(std::string("CurrentIntValue"), 5);
  add("1");
  add("2", "", false);
  host_.takeEvents();
  std::vector<std::string> calls;
  noteCalls(calls);
  EXPECT_TRUE(group_.sortList());
  EXPECT_THAT(calls, ElementsAre("Mark=,Page=1|Mark=,Page=2"));
  const std::string line = logLine(
      2,
      "DriverFeature::fetchOptionByIndex() - Attempt to fetch feature option with index out of "
      "range for feature \"Mark\".");
  EXPECT_THAT(host_.takeEvents(), ElementsAre(line, line));
}

TEST_F(SortTest, SortList_RoutineThatAlwaysSwaps_Ends) {
  comparison = [](AttributeMap&, AttributeMap&) { return 1; };
  for (const char* page : {"1", "2", "3", "4"}) add(page);
  EXPECT_EQ(group_.fetchNumberOfDynamicEntries(), 4);
}

TEST_F(SortTest, SortList_RoutineThatRemovesRecords_FailsWithALine) {
  for (const char* page : {"1", "2", "3"}) add(page);
  comparison = [this](AttributeMap&, AttributeMap&) {
    group_.removeAllDynamicEntries();
    return 1;
  };
  EXPECT_FALSE(group_.sortList());
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, "sortList() - Null static record pointer")));
}

TEST_F(SortTest, SortList_RoutineThatRemovesTheLastRecord_FailsWithALine) {
  for (const char* page : {"1", "2", "3"}) add(page);
  comparison = [this](AttributeMap&, AttributeMap&) {
    group_.removeDynamicEntryByIndex(2);
    return 0;
  };
  EXPECT_FALSE(group_.sortList());
  EXPECT_THAT(host_.takeEvents(),
              ElementsAre(logLine(2, "sortList() - Null static record pointer")));
}

TEST_F(SortTest, SortList_LeavesSelectionAndFocusAlone) {
  add("1");
  add("3", "", false);
  add("2", "", false);
  group_.selectDynamicEntry(1);
  group_.setFeatureProperty(std::string("RecordInFocus"), 1);
  EXPECT_TRUE(group_.sortList());
  EXPECT_THAT(records(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(*group_.fetchSelectedEntries(), ElementsAre(1));
  int record = 0;
  group_.getFeatureProperty(std::string("RecordInFocus"), &record);
  EXPECT_EQ(record, 1);
}

}  // namespace
}  // namespace driver_feature::testing

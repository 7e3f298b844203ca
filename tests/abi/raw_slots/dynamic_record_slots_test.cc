// The slots of a dynamic group for its records, by number: 15 to 20 and 25 to
// 30.

#include <set>

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DynamicRecordSlots : public RawHostTest {
 protected:
  // Adds a record at the end, through slot 29 without sorting.
  void append(const char* page) {
    RawMap record({{"Page", page}, {"Tray", "Upper"}});
    ASSERT_TRUE((callSlot<bool, void*, bool>(find("Exceptions"), 29, record.get(), false)));
    takeEvents();
  }

  // The pages of the records in their order. Slot 17 loads each one into the
  // template, whose values the exported functions read.
  std::vector<std::string> pages() {
    std::vector<std::string> found;
    void* group = find("Exceptions");
    for (unsigned i = 0; callSlot<void*, unsigned>(group, 17, i) != nullptr; ++i) {
      found.push_back(text("Page", "ValueString"));
    }
    return found;
  }
};

TEST_F(DynamicRecordSlots, DynamicGroupSlot15_AddStaticGroup_KeepsTheOrderOfTheSortRoutine) {
  append("5");
  RawMap record({{"Page", "3"}, {"Tray", "Lower"}});
  EXPECT_TRUE((callSlot<bool, void*>(find("Exceptions"), 15, record.get())));
  // The second pass over the sorted records has nothing left to compare.
  EXPECT_THAT(takeEvents(), ElementsAre("sort", "update"));
  EXPECT_THAT(pages(), ElementsAre("3", "5"));
  RawMap tooShort({{"Page", "3"}});
  EXPECT_FALSE((callSlot<bool, void*>(find("Exceptions"), 15, tooShort.get())));
  EXPECT_THAT(takeEvents(),
              ElementsAre("2 DriverFeature: addStaticGroupToDynamicGroupWithSort() - Wrong "
                          "number of entries in map"));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot16_FetchNumberOfDynamicEntries_CountsTheRecords) {
  EXPECT_EQ(callSlot<int>(find("Exceptions"), 16), 0);
  append("1");
  append("2");
  append("3");
  EXPECT_EQ(callSlot<int>(find("Exceptions"), 16), 3);
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot17_GetDynamicEntryByIndex_LoadsTheTemplate) {
  append("5");
  append("8");
  EXPECT_EQ((callSlot<void*, unsigned>(find("Exceptions"), 17, 1)), find("Exception"));
  EXPECT_EQ(integer("Page", "CurrentIntValue"), 8);
  EXPECT_EQ((callSlot<void*, unsigned>(find("Exceptions"), 17, 2)), nullptr);
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot18_RemoveDynamicEntryByIndex_TakesOneOut) {
  append("5");
  append("8");
  append("9");
  EXPECT_TRUE((callSlot<bool, unsigned>(find("Exceptions"), 18, 1)));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
  EXPECT_THAT(pages(), ElementsAre("5", "9"));
  EXPECT_FALSE((callSlot<bool, unsigned>(find("Exceptions"), 18, 2)));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot19_RemoveAllDynamicEntries_ClearsRecordsAndFocus) {
  append("5");
  append("8");
  std::string name = "Exceptions";
  EXPECT_EQ(
      function<int(std::string&, const char*, int)>("SetFeatureIntValue")(name, "RecordInFocus", 1),
      1);
  takeEvents();
  EXPECT_TRUE(callSlot<bool>(find("Exceptions"), 19));
  EXPECT_THAT(takeEvents(), ElementsAre("update"));
  EXPECT_THAT(pages(), IsEmpty());
  EXPECT_EQ(integer("Exceptions", "RecordInFocus"), -1);
  EXPECT_TRUE(callSlot<bool>(find("Exceptions"), 19));
  EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot20_DetectDuplicateRecord_ComparesEveryValue) {
  append("5");
  RawMap same({{"Page", "5"}, {"Tray", "Upper"}});
  RawMap other({{"Page", "5"}, {"Tray", "Lower"}});
  EXPECT_TRUE((callSlot<bool, void*>(find("Exceptions"), 20, same.get())));
  EXPECT_FALSE((callSlot<bool, void*>(find("Exceptions"), 20, other.get())));
  EXPECT_THAT(pages(), ElementsAre("5"));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot25_IsConstraintSetEmpty_ReadsTheSetInMemory) {
  EXPECT_TRUE(callSlot<bool>(find("Exceptions"), 25));
  callSlot<std::set<long>*>(find("Exceptions"), 28)->insert(0);
  EXPECT_FALSE(callSlot<bool>(find("Exceptions"), 25));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot26_AddConstraint_SelectsARecordOnce) {
  EXPECT_TRUE((callSlot<bool, const long&>(find("Exceptions"), 26, 2)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Exceptions"), 26, 2)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Exceptions"), 26, -1)));
  EXPECT_THAT(*callSlot<std::set<long>*>(find("Exceptions"), 28), ElementsAre(2));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot27_RemoveConstraint_DeselectsARecord) {
  EXPECT_FALSE((callSlot<bool, const long&>(find("Exceptions"), 27, 2)));
  callSlot<std::set<long>*>(find("Exceptions"), 28)->insert({2, 3});
  EXPECT_TRUE((callSlot<bool, const long&>(find("Exceptions"), 27, 2)));
  EXPECT_FALSE((callSlot<bool, const long&>(find("Exceptions"), 27, 2)));
  EXPECT_THAT(*callSlot<std::set<long>*>(find("Exceptions"), 28), ElementsAre(3));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot28_FetchSelectedEntries_AnswersTheGroupsOwnSet) {
  auto* selected = callSlot<std::set<long>*>(find("Exceptions"), 28);
  ASSERT_NE(selected, nullptr);
  EXPECT_THAT(*selected, IsEmpty());
  EXPECT_TRUE((callSlot<bool, const long&>(find("Exceptions"), 26, 7)));
  EXPECT_THAT(*selected, ElementsAre(7));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot29_AddStaticGroupWithSort_SortsWhenItIsTold) {
  RawMap third({{"Page", "3"}, {"Tray", "Upper"}});
  RawMap second({{"Page", "2"}, {"Tray", "Upper"}});
  RawMap first({{"Page", "1"}, {"Tray", "Upper"}});
  void* group = find("Exceptions");
  EXPECT_TRUE((callSlot<bool, void*, bool>(group, 29, third.get(), false)));
  EXPECT_TRUE((callSlot<bool, void*, bool>(group, 29, second.get(), false)));
  EXPECT_THAT(takeEvents(), ElementsAre("update", "update"));
  EXPECT_THAT(pages(), ElementsAre("3", "2"));
  EXPECT_TRUE((callSlot<bool, void*, bool>(group, 29, first.get(), true)));
  EXPECT_THAT(pages(), ElementsAre("1", "2", "3"));
}

TEST_F(DynamicRecordSlots, DynamicGroupSlot30_SortList_PutsTheRecordsInOrder) {
  append("3");
  // A routine is looked up when a record is added with sorting; one that keeps
  // the order leaves the records as they are.
  RawMap last({{"Page", "4"}, {"Tray", "Upper"}});
  EXPECT_TRUE((callSlot<bool, void*, bool>(find("Exceptions"), 29, last.get(), true)));
  append("1");
  EXPECT_THAT(pages(), ElementsAre("3", "4", "1"));
  EXPECT_TRUE(callSlot<bool>(find("Exceptions"), 30));
  EXPECT_THAT(pages(), ElementsAre("1", "3", "4"));
}

}  // namespace
}  // namespace raw_slots

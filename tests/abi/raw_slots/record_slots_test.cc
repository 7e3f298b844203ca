// The slots of a dynamic group for its records, by number: 15 to 20 and 25 to
// 30.

#include <set>

#include "raw_host.h"

#include <gmock/gmock.h>

namespace raw_slots {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordSlots : public RawHostTest {
 protected:
  void* group() { return find("Exceptions"); }

  // Adds a record at the end, through slot 29 without sorting.
  void append(const char* page) {
    RawMap record({{"Page", page}, {"Tray", "Upper"}});
    ASSERT_TRUE((callSlot<bool, void*, bool>(group(), 29, record.get(), false)));
  }

  // The pages of the records in their order. Slot 17 loads each one into the
  // template, whose values the exported functions read.
  std::vector<std::string> pages() {
    std::vector<std::string> found;
    for (unsigned i = 0; callSlot<void*, unsigned>(group(), 17, i) != nullptr; ++i) {
      found.push_back(text("Page", "ValueString"));
    }
    return found;
  }
};

TEST_F(RecordSlots, Slot15_AddsARecordInOrder) {
  append("5");
  RawMap record({{"Page", "3"}, {"Tray", "Lower"}});
  EXPECT_TRUE((callSlot<bool, void*>(group(), 15, record.get())));
  EXPECT_THAT(pages(), ElementsAre("3", "5"));
}

TEST_F(RecordSlots, Slots16And17_CountTheRecordsAndLoadOne) {
  append("5");
  append("8");
  append("9");
  EXPECT_EQ(callSlot<int>(group(), 16), 3);
  EXPECT_EQ((callSlot<void*, unsigned>(group(), 17, 1)), find("Exception"));
  EXPECT_EQ(integer("Page", "CurrentIntValue"), 8);
}

TEST_F(RecordSlots, Slots18And19_RemoveOneAndAll) {
  append("5");
  append("8");
  append("9");
  EXPECT_TRUE((callSlot<bool, unsigned>(group(), 18, 1)));
  EXPECT_THAT(pages(), ElementsAre("5", "9"));
  EXPECT_TRUE(callSlot<bool>(group(), 19));
  EXPECT_THAT(pages(), IsEmpty());
}

TEST_F(RecordSlots, Slot20_FindsADuplicate) {
  append("5");
  RawMap same({{"Page", "5"}, {"Tray", "Upper"}});
  RawMap other({{"Page", "5"}, {"Tray", "Lower"}});
  EXPECT_TRUE((callSlot<bool, void*>(group(), 20, same.get())));
  EXPECT_FALSE((callSlot<bool, void*>(group(), 20, other.get())));
  EXPECT_THAT(pages(), ElementsAre("5"));
}

TEST_F(RecordSlots, Slots25To28_ReadAndChangeTheSelection) {
  EXPECT_TRUE(callSlot<bool>(group(), 25));
  EXPECT_TRUE((callSlot<bool, const long&>(group(), 26, 70000)));
  EXPECT_FALSE(callSlot<bool>(group(), 25));
  EXPECT_THAT(*callSlot<std::set<long>*>(group(), 28), ElementsAre(70000));
  EXPECT_TRUE((callSlot<bool, const long&>(group(), 27, 70000)));
  EXPECT_THAT(*callSlot<std::set<long>*>(group(), 28), IsEmpty());
}

TEST_F(RecordSlots, Slot29_SortsWhenAskedTo) {
  RawMap first({{"Page", "1"}, {"Tray", "Upper"}});
  append("3");
  append("2");
  EXPECT_THAT(pages(), ElementsAre("3", "2"));
  EXPECT_TRUE((callSlot<bool, void*, bool>(group(), 29, first.get(), true)));
  EXPECT_THAT(pages(), ElementsAre("1", "2", "3"));
}

TEST_F(RecordSlots, Slot30_Sorts) {
  // Adding with sorting has the routine looked up.
  RawMap last({{"Page", "4"}, {"Tray", "Upper"}});
  EXPECT_TRUE((callSlot<bool, void*, bool>(group(), 29, last.get(), true)));
  append("1");
  EXPECT_THAT(pages(), ElementsAre("4", "1"));
  EXPECT_TRUE(callSlot<bool>(group(), 30));
  EXPECT_THAT(pages(), ElementsAre("1", "4"));
}

}  // namespace
}  // namespace raw_slots

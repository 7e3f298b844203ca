#include "model/record_list.h"

#include <malloc.h>

#include <cstddef>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/dynamic_record.h"

namespace driver_feature {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A list beside the numbers that are to be in it.
class RecordListTest : public ::testing::Test {
 protected:
  static constexpr int kRecords = 200;

  void append(int number) {
    list_.grow();
    EXPECT_EQ(list_[list_.size() - 1], nullptr);
    list_[list_.size() - 1] = &records_[static_cast<std::size_t>(number)];
  }

  void append(int first, int end) {
    for (int number = first; number < end; ++number) append(number);
  }

  std::vector<int> numbers() {
    std::vector<int> numbers;
    for (std::size_t i = 0; i < list_.size(); ++i) {
      numbers.push_back(static_cast<int>(list_[i] - records_.data()));
    }
    return numbers;
  }

  std::vector<DynamicRecord> records_{kRecords};
  RecordList list_;
};

TEST_F(RecordListTest, Erase_AnyPosition_LaterRecordsMoveUp) {
  for (std::size_t position = 0; position < 9; ++position) {
    SCOPED_TRACE(position);
    list_.clear();
    append(0, 9);
    std::vector<int> expected = {0, 1, 2, 3, 4, 5, 6, 7, 8};
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(position));
    list_.erase(position);
    EXPECT_EQ(numbers(), expected);
  }
}

TEST_F(RecordListTest, Erase_MoreThanOnce_PositionsCountTheRecordsThatAreLeft) {
  append(0, 7);
  list_.erase(2);
  EXPECT_THAT(numbers(), ElementsAre(0, 1, 3, 4, 5, 6));
  list_.erase(2);
  EXPECT_THAT(numbers(), ElementsAre(0, 1, 4, 5, 6));
  list_.erase(0);
  EXPECT_THAT(numbers(), ElementsAre(1, 4, 5, 6));
}

TEST_F(RecordListTest, Grow_AfterRemovals_IsTheLastRecord) {
  append(0, 6);
  list_.erase(1);
  list_.erase(4);  // The last one.
  append(6, 9);
  EXPECT_THAT(numbers(), ElementsAre(0, 2, 3, 4, 6, 7, 8));
}

TEST_F(RecordListTest, Erase_LastOne_TheOthersStay) {
  append(0, 4);
  list_.erase(3);
  EXPECT_THAT(numbers(), ElementsAre(0, 1, 2));
  append(7);
  EXPECT_THAT(numbers(), ElementsAre(0, 1, 2, 7));
}

TEST_F(RecordListTest, Erase_All_TheListCanBeFilledAgain) {
  append(0, 5);
  for (int i = 0; i < 5; ++i) list_.erase(list_.size() / 2);
  EXPECT_THAT(numbers(), IsEmpty());
  append(7, 9);
  EXPECT_THAT(numbers(), ElementsAre(7, 8));
}

TEST_F(RecordListTest, Clear_ListWithHoles_IsEmpty) {
  append(0, 5);
  list_.erase(1);
  list_.clear();
  EXPECT_EQ(list_.size(), 0U);
  append(5, 7);
  EXPECT_THAT(numbers(), ElementsAre(5, 6));
}

TEST_F(RecordListTest, CloseHoles_KeepsTheRecordsAndLaterChanges) {
  append(0, 9);
  for (const std::size_t position : {1U, 3U, 3U}) list_.erase(position);
  list_.closeHoles();
  EXPECT_THAT(numbers(), ElementsAre(0, 2, 3, 6, 7, 8));
  list_.erase(4);
  append(9);
  EXPECT_THAT(numbers(), ElementsAre(0, 2, 3, 6, 8, 9));
}

// Where the allocator reports how much is in use.
TEST_F(RecordListTest, Erase_ManyTimes_GivesTheMemoryBack) {
  constexpr int kMany = 10000;
  constexpr std::size_t kKept = 20000;  // By the allocator, which counts it as used.
  const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
  const std::size_t before = used();
  for (int i = 0; i < kMany; ++i) list_.grow();
  if (used() == before) GTEST_SKIP() << "the allocator keeps no account";
  for (int i = 0; i < kMany; ++i) list_.erase(0);
  EXPECT_LT(used(), before + kKept);
  for (int i = 0; i < kMany; ++i) {
    list_.grow();
    list_.erase(0);
  }
  EXPECT_LT(used(), before + kKept);
}

// Every position of lists of every length, with holes at changing places.
TEST_F(RecordListTest, ManyChanges_KeepTheOrder) {
  std::vector<int> expected;
  unsigned place = 1;
  for (int round = 0; round < 40; ++round) {
    const int added = round % 7;
    for (int i = 0; i < added; ++i) {
      const int number = (round * 7 + i) % kRecords;
      append(number);
      expected.push_back(number);
    }
    for (int i = 0; i < round % 5 && !expected.empty(); ++i) {
      place = place * 1103515245U + 12345U;
      const std::size_t position = (place >> 16U) % expected.size();
      list_.erase(position);
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(position));
    }
    ASSERT_EQ(numbers(), expected) << round;
  }
  EXPECT_GT(expected.size(), 30U);
}

}  // namespace
}  // namespace driver_feature

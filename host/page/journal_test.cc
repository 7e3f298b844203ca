#include "host/page/journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace driver_feature::page {
namespace {

using Settings = std::vector<host::Setting>;

std::string inWords(const Settings& settings) {
  std::string text;
  for (const auto& [name, value] : settings) {
    text += (text.empty() ? "" : " ") + name + "=" + value;
  }
  return text;
}

// Tries that succeed for one way only, and what was tried.
struct OnlyWay {
  std::string way;
  Journal::Match match = Journal::Match::kAll;
  std::vector<std::string> tried = {};

  Journal::Try asTry() {
    return [this](const Settings& settings) {
      tried.push_back(inWords(settings));
      return tried.back() == way ? match : Journal::Match::kNone;
    };
  }
};

TEST(JournalTest, WithoutTries_WhatHasChangedIsKeptInItsFirstOrder) {
  Journal journal;
  journal.note({{"B", "1"}}, {}, {{"B", "1"}}, {});
  journal.note({{"A", "2"}}, {}, {{"A", "2"}, {"B", "1"}}, {});
  EXPECT_EQ(inWords(journal.settings()), "B=1 A=2");
  journal.note({{"B", "3"}}, {}, {{"A", "2"}, {"B", "3"}}, {});
  EXPECT_EQ(inWords(journal.settings()), "B=3 A=2");
  journal.note({{"B", "0"}}, {}, {{"A", "2"}}, {});
  EXPECT_EQ(inWords(journal.settings()), "A=2");
}

TEST(JournalTest, ValueThatNeedsAnEarlierOne_KeepsBoth) {
  Journal journal;
  OnlyWay first{"Mark=Draft"};
  journal.note({{"Mark", "Draft"}}, {}, {{"Mark", "Draft"}}, first.asTry());
  OnlyWay second{"Mark=Draft Angle=5"};
  journal.note({{"Angle", "5"}}, {}, {{"Angle", "5"}, {"Mark", "Draft"}}, second.asTry());
  EXPECT_EQ(inWords(journal.settings()), "Mark=Draft Angle=5");
  OnlyWay longer{"Mark=Draft Angle=5 Mark=None"};
  journal.note({{"Mark", "None"}}, {}, {{"Angle", "5"}}, longer.asTry());
  EXPECT_EQ(inWords(journal.settings()), "Mark=Draft Angle=5 Mark=None");
  EXPECT_EQ(longer.tried.front(), "Angle=5");  // The short way comes first.
  // A later value takes the place of its last one.
  OnlyWay replaced{"Mark=Draft Angle=5 Mark=Copy"};
  journal.note({{"Mark", "Copy"}}, {}, {{"Angle", "5"}, {"Mark", "Copy"}}, replaced.asTry());
  EXPECT_EQ(inWords(journal.settings()), "Mark=Draft Angle=5 Mark=Copy");
}

TEST(JournalTest, WayToTheOutputsAlone_IsTakenWhenThereIsNoBetterOne) {
  Journal journal;
  OnlyWay outputs{"A=1", Journal::Match::kOutputs};
  journal.note({{"A", "1"}}, {}, {{"A", "1"}}, outputs.asTry());
  EXPECT_EQ(inWords(journal.settings()), "A=1");
  EXPECT_GT(outputs.tried.size(), 1U);  // It has looked for a better one.
}

TEST(JournalTest, OthersThatHaveChanged_AreSetWhereNothingElseHelps) {
  Journal journal;
  OnlyWay only{"A=1 B=0"};
  journal.note({{"A", "1"}}, {{"B", "0"}}, {{"A", "1"}}, only.asTry());
  EXPECT_EQ(inWords(journal.settings()), "A=1 B=0");
  journal.clear();
  EXPECT_TRUE(journal.settings().empty());
}

TEST(JournalTest, NoWay_KeepsAllThatWasSet) {
  Journal journal;
  OnlyWay none{"never"};
  journal.note({{"A", "1"}}, {}, {{"A", "1"}}, none.asTry());
  journal.note({{"A", "0"}}, {}, {}, none.asTry());
  EXPECT_EQ(inWords(journal.settings()), "A=1 A=0");
}

}  // namespace
}  // namespace driver_feature::page

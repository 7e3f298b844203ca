// What cannot be, with which hardware it could, and what refuses nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/book.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Kind = Plan::Kind;

TEST(Rulebook, Plan_OnlyHardwareCouldHelp_IsImpossibleAndNamesIt) {
  Book book({"a: Duplex!=None Unit=Missing", "b: Duplex=Long Media=Film"}, {{"Media", "Film"}});
  const Plan plan = book.plan({{"Duplex", "Long"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.changes, IsEmpty());
  EXPECT_THAT(placesOf(plan.rules), ElementsAre(0));
  EXPECT_THAT(plan.hardware, ElementsAre(Change{"Unit", "Missing", "Installed"}));
  EXPECT_THAT(plan.withHardware, ElementsAre(Change{"Media", "Film", "Plain"}));
}

TEST(Rulebook, Plan_HardwareOrAnotherFeature_ChangesTheOtherFeature) {
  Book book({"a: Duplex!=None Unit=Missing Media=Plain"});
  EXPECT_THAT(book.plan({{"Duplex", "Long"}}).changes,
              ElementsAre(Change{"Media", "Plain", "Film"}));
}

TEST(Rulebook, Plan_OnePieceOfHardwareOrTwo_NamesTheOne) {
  Book book({"a: Staple=On Finisher=Missing Unit=Missing", "b: Finisher=Installed Unit=Missing"});
  EXPECT_THAT(book.plan({{"Staple", "On"}}).hardware,
              ElementsAre(Change{"Unit", "Missing", "Installed"}));
}

TEST(Rulebook, Plan_NoHardwareHelps_NamesNone) {
  Book book({"a: Staple=On Media=Plain|Film|Card Unit=Missing|Installed"});
  const Plan plan = book.plan({{"Staple", "On"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.hardware, IsEmpty());
}

TEST(Rulebook, Plan_PersonTellsTheHardware_TheOthersFollow) {
  Book book({"a: Duplex!=None Unit=Missing"}, {{"Unit", "Installed"}, {"Duplex", "Long"}});
  EXPECT_THAT(book.plan({{"Unit", "Missing"}}).changes,
              ElementsAre(Change{"Duplex", "Long", "None"}));
}

TEST(Rulebook, Plan_SeveralRulesForbidTogether_NamesTheseAndNoOther) {
  Book book({"spare: Media=Film Copies>50", "a: Media=Film Staple=Off",
             "spare: Staple=On Duplex=Long", "b: Media=Film Staple=On"});
  const Plan plan = book.plan({{"Media", "Film"}});
  EXPECT_EQ(plan.kind, Kind::kImpossible);
  EXPECT_THAT(plan.rules, ElementsAre(BrokenRule{1, {{"Media", "Film"}, {"Staple", "Off"}}},
                                      BrokenRule{3, {}}));
}

TEST(Rulebook, Plan_RuleHoldsByDefaultAndNothingOfItIsSet_DoesNotRefuse) {
  Book book({"a: Duplex=None Staple=Off", "b: Media=Film Copies<5"});
  EXPECT_EQ(book.plan({{"Media", "Card"}}).kind, Kind::kFits);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes, ElementsAre(Change{"Copies", "1", "5"}));
  EXPECT_THAT(placesOf(book.held()), ElementsAre(0));
  EXPECT_THAT(book.refusing(), IsEmpty());
}

TEST(Rulebook, Plan_RuleHoldsByDefaultAndAFeatureOfItIsSet_Refuses) {
  Book book({"a: Duplex=None Staple=Off"});
  EXPECT_THAT(book.plan({{"Staple", "Off"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}));
  book.noteSet("Duplex");
  EXPECT_THAT(placesOf(book.refusing()), ElementsAre(0));
}

TEST(Rulebook, Plan_StepsAreUsedUp_IsNotFound) {
  Book book({"a: Media=Film Duplex=None", "b: Duplex!=None Staple=Off"});
  const Plan plan = book.plan({{"Media", "Film"}}, Keep::kAll, 3);
  EXPECT_EQ(plan.kind, Kind::kNotFound);
  EXPECT_GT(plan.steps, 3);
}

TEST(Rulebook, Plan_WishThatNoRuleCanSpeakOf_Fits) {
  Book book({"a: Media=Film Duplex!=None"});
  EXPECT_EQ(book.plan({{"Watermark", "Draft"}}).kind, Kind::kFits);
  EXPECT_EQ(book.plan({{"Copies", "many"}}).kind, Kind::kFits);
}

TEST(Rulebook, WouldConflict_RuleOfTheDefaults_IsOneForItsOwnFeaturesOnly) {
  Book book({"a: Duplex=None Staple=Off"});
  EXPECT_FALSE(book.wouldConflict({"Media", "Film"}));
  EXPECT_TRUE(book.wouldConflict({"Duplex", "None"}));
  EXPECT_FALSE(book.wouldConflict({"Duplex", "Long"}));
  EXPECT_THAT(book.refusing(), IsEmpty());
}

TEST(Rulebook, ConflictingChoices_OfEachFeature_AreThoseThatWouldConflict) {
  Book book({"a: Media=Film|Card Duplex!=None", "b: Media=Plain Staple=Off"},
            {{"Duplex", "Short"}});
  EXPECT_THAT(book.conflictingChoices("Media"), ElementsAre("Plain", "Film", "Card"));
  EXPECT_THAT(book.conflictingChoices("Duplex"), IsEmpty());
  EXPECT_THAT(book.conflictingChoices("Staple"), ElementsAre("Off"));
  EXPECT_THAT(book.conflictingChoices("Copies"), IsEmpty());
  EXPECT_THAT(book.conflictingChoices("Watermark"), IsEmpty());
  EXPECT_THAT(book.conflictingChoices(),
              ElementsAre(Pair("Media", ElementsAre("Plain", "Film", "Card")),
                          Pair("Staple", ElementsAre("Off"))));
}

TEST(Rulebook, ConflictingChoices_RulesOfTheDefaults_CountForTheirOwnFeatures) {
  Book book({"a: Duplex=None Staple=Off", "b: Media=Plain Duplex=None"});
  EXPECT_THAT(book.conflictingChoices(),
              ElementsAre(Pair("Duplex", ElementsAre("None")), Pair("Media", ElementsAre("Plain")),
                          Pair("Staple", ElementsAre("Off"))));
  for (const auto& [feature, choices] : book.conflictingChoices()) {
    EXPECT_EQ(book.conflictingChoices(feature), choices);
  }
  EXPECT_THAT(book.refusing(), IsEmpty());
}

TEST(Rulebook, WouldConflict_Numbers_AreComparedWithTheirThresholds) {
  Book book({"a: Media=Plain Copies>10"});
  EXPECT_TRUE(book.wouldConflict({"Copies", "11"}));
  EXPECT_FALSE(book.wouldConflict({"Copies", "10"}));
  EXPECT_FALSE(book.wouldConflict({"Copies", "ten"}));
}

}  // namespace

}  // namespace driver_feature::rules

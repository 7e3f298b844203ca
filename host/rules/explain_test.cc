#include "host/rules/explain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Plan::Kind;

host::Rules filmRules() {
  host::Rules rules = rulesOf({"film-duplex: MediaType=Transparency Duplex!=None",
                               "booklet: Fold=Booklet PageSize=A4|A5|A6 Copies>10 Scale<0.5"});
  rules.rules[0].text = "Transparencies cannot be printed on both sides.";
  return rules;
}

BrokenRule brokenFilm() {
  return {0, {{"MediaType", "Transparency"}, {"Duplex", "TwoSided"}}};
}

TEST(Explain, PlanThatFits_HasNoLine) {
  EXPECT_THAT(explain({}, filmRules()), IsEmpty());
}

TEST(Explain, Mended_HasTheRulesAndTheChanges) {
  const Plan plan{.kind = Kind::kMended,
                  .wishes = {{"MediaType", "Transparency"}},
                  .changes = {{"Duplex", "TwoSided", "None"}},
                  .rules = {brokenFilm()}};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("MediaType=Transparency cannot be combined with Duplex=TwoSided: "
                          "Transparencies cannot be printed on both sides.",
                          "also changes Duplex: TwoSided -> None"));
}

TEST(Explain, NewestWish_ComesFirst) {
  const Plan plan{
      .kind = Kind::kImpossible,
      .wishes = {{"MediaType", "Transparency"}, {"Duplex", "TwoSided"}, {"Copies", "2"}},
      .rules = {brokenFilm()}};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("Duplex=TwoSided cannot be combined with MediaType=Transparency: "
                          "Transparencies cannot be printed on both sides."));
}

TEST(Explain, RuleWithoutText_IsNamed) {
  const Plan plan{.kind = Kind::kMended,
                  .wishes = {{"Fold", "Booklet"}},
                  .rules = {{1, {{"Fold", "Booklet"}, {"PageSize", "A5"}, {"Copies", "12"}}}}};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("Fold=Booklet cannot be combined with PageSize=A5 and Copies=12 "
                          "(rule booklet)"));
}

TEST(Explain, RuleThatDoesNotHold_IsToldByItsConditions) {
  const Plan plan{
      .kind = Kind::kImpossible, .wishes = {{"Copies", "12"}}, .rules = {{1, {}}, {0, {}}}};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("Copies above 10 cannot be combined with Fold=Booklet, "
                          "PageSize=A4, A5 or A6 and Scale below 0.5 (rule booklet)",
                          "MediaType=Transparency cannot be combined with Duplex other than None: "
                          "Transparencies cannot be printed on both sides."));
}

TEST(Explain, RuleOfOneFeature_CannotBeChosen) {
  const host::Rules rules = rulesOf({"never: Fold=Booklet"});
  const Plan plan{.kind = Kind::kImpossible, .rules = {{0, {{"Fold", "Booklet"}}}}};
  EXPECT_THAT(explain(plan, rules), ElementsAre("Fold=Booklet cannot be chosen (rule never)"));
}

TEST(Explain, Hardware_IsNamedWithWhatElseChanges) {
  const Plan plan{.kind = Kind::kImpossible,
                  .wishes = {{"Duplex", "TwoSided"}},
                  .rules = {brokenFilm()},
                  .hardware = {{"DuplexUnit", "Missing", "Installed"}, {"Tray", "1", "2"}},
                  .withHardware = {{"MediaType", "Transparency", "Plain"}}};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("Duplex=TwoSided cannot be combined with MediaType=Transparency: "
                          "Transparencies cannot be printed on both sides.",
                          "possible with DuplexUnit=Installed and Tray=2",
                          "also changes MediaType: Transparency -> Plain"));
}

TEST(Explain, SearchWasGivenUp_SaysAfterHowMuch) {
  const Plan plan{.kind = Kind::kNotFound, .rules = {brokenFilm()}, .steps = 5000};
  EXPECT_THAT(explain(plan, filmRules()),
              ElementsAre("MediaType=Transparency cannot be combined with Duplex=TwoSided: "
                          "Transparencies cannot be printed on both sides.",
                          "no way was found within 5000 steps"));
}

TEST(Explain, TextsOfALanguage_ReplaceTheRulesOwn) {
  const host::TextLookUp german(
      {{"de", {{"rule:film-duplex", "Folien werden nicht beidseitig bedruckt."}}}}, "de");
  const Plan plan{.kind = Kind::kMended, .rules = {brokenFilm(), {1, {{"Fold", "Booklet"}}}}};
  EXPECT_THAT(explain(plan, filmRules(), &german),
              ElementsAre("MediaType=Transparency cannot be combined with Duplex=TwoSided: "
                          "Folien werden nicht beidseitig bedruckt.",
                          "Fold=Booklet cannot be chosen (rule booklet)"));
}

}  // namespace

}  // namespace driver_feature::rules

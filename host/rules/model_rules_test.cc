// Rules about the features of a loaded description.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "host/rules/explain.h"
#include "host/rules/rulebook.h"
#include "host/session/session.h"
#include "support/rule_notation.h"

namespace driver_feature::rules {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Kind = Plan::Kind;

constexpr const char* kPrinter = R"(<FeatureDescription>
  <Feature FeatureType='MultiSelect' Name='Unit' DefaultValue='Missing'>
    <Option Name='Missing'/><Option Name='Installed'/>
  </Feature>
  <Feature FeatureType='MultiSelect' Name='Media' DefaultValue='Plain'>
    <Option Name='Plain'/><Option Name='Film'/><Option Name='Foil' Sensitivity='false'/>
  </Feature>
  <Feature FeatureType='MultiSelect' Name='Duplex' DefaultValue='None'>
    <Option Name='None'/><Option Name='Long'/><Option Name='Short'/>
  </Feature>
  <Feature FeatureType='IntEntry' Name='Copies' IntMinValue='1' IntMaxValue='99' DefaultValue='3'/>
  <Feature FeatureType='FloatEntry' Name='Gutter' FloatMinValue='0' FloatMaxValue='25.5'
           DefaultValue='2.5'/>
  <Feature FeatureType='TextEntry' Name='Title' DefaultValue='none'/>
  <FeatureDynamicGroup Name='Exceptions'>
    <FeatureStaticGroup Name='Exception'>
      <Feature FeatureType='IntEntry' Name='Page' DefaultValue='1'/>
    </FeatureStaticGroup>
  </FeatureDynamicGroup>
  <FeatureStaticGroup Name='Finishing'>
    <Feature FeatureType='MultiSelect' Name='Staple' DefaultValue='Off' Sensitivity='false'>
      <Option Name='Off'/><Option Name='On'/>
    </Feature>
  </FeatureStaticGroup>
</FeatureDescription>)";

class ModelRules : public testing::Test {
 protected:
  ModelRules() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) return;
    const std::string file = folder + "/printer.xml";
    std::ofstream(file) << kPrinter;
    host::SessionRequest request;
    request.description = file;
    request.library = DRIVER_FEATURE_LIBRARY;
    auto session = host::Session::open(request);
    std::filesystem::remove_all(folder);
    if (session) session_ = std::move(*session);
  }

  void SetUp() override { ASSERT_TRUE(session_); }

  const host::Model& model() const { return session_->model(); }

  void setValue(const std::string& feature, const std::string& value) const {
    ASSERT_TRUE(model().features.at(feature).setValue(value));
  }

  IntermediateCoreOption& option(const std::string& feature, int position) const {
    return *model().features.at(feature).option(position);
  }

  // The names of the feature's options that are available.
  std::vector<std::string> available(const std::string& feature) const {
    std::vector<std::string> names;
    for (const host::Choice& choice : model().features.at(feature).choices()) {
      if (choice.available) names.push_back(choice.name);
    }
    return names;
  }

  std::unique_ptr<host::Session> session_;
};

host::Rules unitRules() {
  return rulesOf({"unit: Duplex!=None Unit=Missing", "film: Duplex=Long Media=Film"}, {"Unit"});
}

TEST_F(ModelRules, DomainsOf_FeaturesThatRulesName_AreInTheOrderOfTheDescription) {
  const Domains domains =
      domainsOf(model(), rulesOf({"a: Gutter>1 Copies>2 Title=x Page>3 Media=Film",
                                  "b: Nothing=x Exception=x Staple=On"},
                                 {"Unit"}));
  ASSERT_THAT(domains, SizeIs(5));
  EXPECT_EQ(domains[0].feature, "Unit");
  EXPECT_EQ(domains[1].feature, "Media");
  EXPECT_EQ(domains[2].feature, "Copies");
  EXPECT_EQ(domains[3].feature, "Gutter");
  EXPECT_EQ(domains[4].feature, "Staple");
  EXPECT_EQ(domains[1].defaultChoice, "Plain");
  EXPECT_TRUE(domains[1].isChangeable);
  EXPECT_FALSE(domains[4].isChangeable);
  ASSERT_THAT(domains[1].choices, SizeIs(3));
  EXPECT_EQ(domains[1].choices[1].name, "Film");
  EXPECT_TRUE(domains[1].choices[1].isTarget);
  EXPECT_FALSE(domains[1].choices[2].isTarget);
}

TEST_F(ModelRules, DomainsOf_Numbers_HaveTheirLimitsAndDefaults) {
  const Domains domains = domainsOf(model(), rulesOf({"a: Gutter>1 Copies>2"}));
  ASSERT_THAT(domains, SizeIs(2));
  EXPECT_EQ(domains[0].kind, Domain::Kind::kWhole);
  EXPECT_EQ(domains[0].lowest, 1);
  EXPECT_EQ(domains[0].highest, 99);
  EXPECT_EQ(domains[0].defaultNumber, 3);
  EXPECT_EQ(domains[1].kind, Domain::Kind::kDecimal);
  EXPECT_EQ(domains[1].highest, 25.5);
  EXPECT_EQ(domains[1].defaultNumber, 2.5);
}

TEST_F(ModelRules, Plan_ReadsTheValuesOfTheModel_AndChangesNothing) {
  Rulebook book(model(), rulesOf({"a: Media=Film Duplex=Long Copies>5 Gutter<1"}));
  setValue("Duplex", "Long");
  setValue("Copies", "7");
  setValue("Gutter", "0.5");
  book.noteSet("Duplex");
  const Plan plan = book.plan({{"Media", "Film"}});
  EXPECT_THAT(plan.changes, ElementsAre(Change{"Copies", "7", "5"}));
  EXPECT_EQ(model().features.at("Copies").currentInt(), 7);
  EXPECT_EQ(model().features.at("Media").currentChoice(), "Plain");
}

TEST_F(ModelRules, Plan_AvailabilityHasChanged_TakesTheChoicesOfNow) {
  Rulebook book(model(), rulesOf({"a: Media=Film Duplex=None"}));
  option("Duplex", 1).setOptionProperty("Sensitivity", false);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Short"}));
  option("Duplex", 1).setOptionProperty("Sensitivity", true);
  EXPECT_THAT(book.plan({{"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}));
}

TEST_F(ModelRules, TakeOut_ChoicesThatNothingAllows_AreTakenOutWithTheRulesNumber) {
  Rulebook book(model(), unitRules());
  EXPECT_THAT(book.takeOut(),
              ElementsAre(TakenOut{"Duplex", "Long", {0}}, TakenOut{"Duplex", "Short", {0}}));
  EXPECT_THAT(available("Duplex"), ElementsAre("None"));
  EXPECT_FALSE(option("Duplex", 1).addConstraint(1'000'000'000L));
  EXPECT_TRUE(option("Duplex", 0).isConstraintSetEmpty());
  EXPECT_THAT(available("Unit"), ElementsAre("Missing", "Installed"));
  EXPECT_THAT(available("Media"), ElementsAre("Plain", "Film"));
}

TEST_F(ModelRules, Impossible_AreTheSameChoices_WhichStayInTheModel) {
  Rulebook book(model(), unitRules());
  EXPECT_THAT(book.impossible(),
              ElementsAre(TakenOut{"Duplex", "Long", {0}}, TakenOut{"Duplex", "Short", {0}}));
  EXPECT_THAT(available("Duplex"), ElementsAre("None", "Long", "Short"));
  EXPECT_TRUE(option("Duplex", 1).isConstraintSetEmpty());
  // They can still be taken out, and give the same result afterwards.
  book.takeOut();
  EXPECT_THAT(available("Duplex"), ElementsAre("None"));
  EXPECT_EQ(book.impossible().size(), 2U);
  setValue("Unit", "Installed");
  EXPECT_THAT(book.impossible(), IsEmpty());
  EXPECT_THAT(available("Duplex"), ElementsAre("None"));
  book.takeOut();
  EXPECT_THAT(available("Duplex"), ElementsAre("None", "Long", "Short"));
}

TEST_F(ModelRules, TakeOut_HardwareHasCome_GivesTheChoicesBack) {
  Rulebook book(model(), unitRules());
  book.takeOut();
  setValue("Unit", "Installed");
  EXPECT_THAT(book.takeOut(), IsEmpty());
  EXPECT_THAT(available("Duplex"), ElementsAre("None", "Long", "Short"));
  EXPECT_TRUE(option("Duplex", 1).isConstraintSetEmpty());
}

TEST_F(ModelRules, TakeOut_ChoiceThatAChangeWouldAllow_StaysChoosable) {
  Rulebook book(model(), unitRules());
  setValue("Unit", "Installed");
  setValue("Media", "Film");
  EXPECT_THAT(book.takeOut(), IsEmpty());
  EXPECT_EQ(book.plan({{"Duplex", "Long"}}).kind, Kind::kMended);
}

TEST_F(ModelRules, TakeOut_AnotherConstraintHoldsTheOption_StaysUnavailable) {
  Rulebook book(model(), unitRules());
  book.takeOut();
  option("Duplex", 1).addConstraint(17L);
  book.giveBack();
  EXPECT_THAT(available("Duplex"), ElementsAre("None", "Short"));
  EXPECT_FALSE(option("Duplex", 1).isConstraintSetEmpty());
  EXPECT_FALSE(option("Duplex", 1).addConstraint(17L));
}

TEST_F(ModelRules, TakeOut_OtherConstraintGoesFirst_TheOptionComesBackInTheEnd) {
  Rulebook book(model(), unitRules());
  option("Duplex", 1).addConstraint(17L);
  option("Duplex", 1).setOptionProperty("Sensitivity", false);
  book.takeOut();
  option("Duplex", 1).removeConstraint(17L);
  book.giveBack();
  EXPECT_THAT(available("Duplex"), ElementsAre("None", "Long", "Short"));
}

TEST_F(ModelRules, TakeOut_OptionThatItsAuthorMadeUnavailable_StaysSo) {
  Rulebook book(model(), rulesOf({"a: Media=Foil Unit=Missing"}, {"Unit"}));
  EXPECT_THAT(book.takeOut(), ElementsAre(TakenOut{"Media", "Foil", {0}}));
  book.giveBack();
  EXPECT_THAT(available("Media"), ElementsAre("Plain", "Film"));
  EXPECT_TRUE(option("Media", 2).isConstraintSetEmpty());
}

TEST_F(ModelRules, TakeOut_ImpossibleHardware_CanStillBeTold) {
  Rulebook book(model(), rulesOf({"a: Unit=Installed Media=Plain|Film|Foil"}, {"Unit"}));
  EXPECT_THAT(book.takeOut(), IsEmpty());
  EXPECT_THAT(available("Unit"), ElementsAre("Missing", "Installed"));
}

TEST_F(ModelRules, TakeOut_HardwareIsTheSame_ExaminesNothing) {
  Rulebook book(model(), rulesOf({"a: Media=Film Duplex=None"}));
  EXPECT_THAT(book.takeOut(), IsEmpty());
  option("Duplex", 1).setOptionProperty("Sensitivity", false);
  option("Duplex", 2).setOptionProperty("Sensitivity", false);
  EXPECT_THAT(book.takeOut(), IsEmpty());
  book.giveBack();
  EXPECT_THAT(book.takeOut(), ElementsAre(TakenOut{"Media", "Film", {0}}));
}

TEST_F(ModelRules, TakeOut_SeveralRulesForbid_NamesThemAndCountsTheFirst) {
  Rulebook book(model(), rulesOf({"spare: Media=Film Copies>90", "a: Media=Film Duplex=None",
                                  "b: Media=Film Duplex!=None"}));
  EXPECT_THAT(book.takeOut(), ElementsAre(TakenOut{"Media", "Film", {1, 2}}));
  EXPECT_FALSE(option("Media", 1).addConstraint(1'000'000'001L));
}

TEST_F(ModelRules, TakeOut_AnotherRuleForbidsNow_TheOptionStaysOut) {
  Rulebook book(model(), rulesOf({"a: Duplex!=None Unit=Missing", "b: Duplex!=None Unit=Installed"},
                                 {"Unit"}));
  book.takeOut();
  setValue("Unit", "Installed");
  EXPECT_THAT(book.takeOut(),
              ElementsAre(TakenOut{"Duplex", "Long", {1}}, TakenOut{"Duplex", "Short", {1}}));
  EXPECT_THAT(available("Duplex"), ElementsAre("None"));
  EXPECT_TRUE(option("Duplex", 1).removeConstraint(1'000'000'001L));
  EXPECT_TRUE(option("Duplex", 1).isConstraintSetEmpty());
}

TEST_F(ModelRules, Plan_ChoiceIsTakenOut_SaysWhyAndWithWhichHardware) {
  host::Rules rules = unitRules();
  rules.rules[0].text = "Two sides need the duplex unit.";
  Rulebook book(model(), rules);
  book.takeOut();
  EXPECT_THAT(explain(book.plan({{"Duplex", "Long"}}), rules),
              ElementsAre("Duplex=Long cannot be combined with Unit=Missing: "
                          "Two sides need the duplex unit.",
                          "possible with Unit=Installed"));
}

TEST_F(ModelRules, Plan_HardwareIsTold_TakenOutChoicesAreTargetsAgain) {
  Rulebook book(model(),
                rulesOf({"a: Duplex!=None Unit=Missing", "b: Media=Film Duplex=None"}, {"Unit"}));
  book.takeOut();
  EXPECT_THAT(book.plan({{"Unit", "Installed"}, {"Media", "Film"}}).changes,
              ElementsAre(Change{"Duplex", "None", "Long"}));
}

}  // namespace

}  // namespace driver_feature::rules

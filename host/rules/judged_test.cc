// What the engine says about random rules, judged by z3.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>

#include "host/rules/rulebook.h"
#include "support/rule_notation.h"
#include "support/smt_judge.h"

namespace driver_feature::rules {

namespace {

using testing::IsEmpty;
using Kind = Plan::Kind;

// The same numbers on every machine.
class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  int below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }

 private:
  std::mt19937 engine_;
};

struct Case {
  Domains domains;
  std::vector<std::string> texts;
  std::vector<std::string> hardware;
  std::vector<std::string> personal;  // What a person has set.
  Assignment wish;
};

std::string letter(int number) {
  return std::string(1, static_cast<char>('a' + number));
}

std::string randomCondition(const Domains& domains, Chance& chance) {
  const Domain& domain =
      domains[static_cast<std::size_t>(chance.below(static_cast<int>(domains.size())))];
  if (domain.kind != Domain::Kind::kChoices) {
    return domain.feature + (chance.below(2) == 0 ? ">" : "<") + std::to_string(chance.below(12));
  }
  std::string text = domain.feature + (chance.below(4) == 0 ? "!=" : "=");
  const int count = static_cast<int>(domain.choices.size());
  const int first = chance.below(count);
  text += letter(first);
  if (chance.below(3) == 0) text += "|" + letter(chance.below(count));
  return text;
}

Case randomCase(unsigned seed) {
  Chance chance(seed);
  Case made;
  const int features = 4 + chance.below(4);
  for (int feature = 0; feature < features; ++feature) {
    std::vector<std::string> choices;
    for (int choice = 1 + chance.below(3); choice >= 0; --choice) {
      choices.insert(choices.begin(), letter(choice));
    }
    Domain domain = choicesOf("F" + std::to_string(feature), choices);
    for (Domain::Choice& choice : domain.choices) choice.isTarget = chance.below(8) != 0;
    made.domains.push_back(domain);
  }
  made.domains.push_back(numbersOf("N", 2, 9));
  made.domains.push_back(numbersOf("D", 0.5, 10, Domain::Kind::kDecimal));
  const int rules = 4 + chance.below(30);
  for (int rule = 0; rule < rules; ++rule) {
    std::string text = "r" + std::to_string(rule) + ":";
    for (int condition = chance.below(5) / 2; condition >= 0; --condition) {
      text += " " + randomCondition(made.domains, chance);
    }
    text += " " + randomCondition(made.domains, chance);
    made.texts.push_back(text);
  }
  made.hardware = {"F0", "F1"};
  made.personal = {"F2", "N"};
  const Domain& wished = made.domains[static_cast<std::size_t>(2 + chance.below(features - 2))];
  made.wish = {wished.feature, letter(chance.below(static_cast<int>(wished.choices.size())))};
  return made;
}

std::string textOf(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

Values defaultsOf(const Domains& domains) {
  Values values;
  for (const Domain& domain : domains) {
    values[domain.feature] =
        domain.kind == Domain::Kind::kChoices ? domain.defaultChoice : textOf(domain.defaultNumber);
  }
  return values;
}

// One case, in the words of its seed.
class JudgedCase {
 public:
  JudgedCase(unsigned seed, SmtJudge& judge)
      : seed_(seed),
        case_(randomCase(seed)),
        rules_(rulesOf(case_.texts, case_.hardware)),
        judge_(judge) {
    Rulebook book(case_.domains, rules_);
    for (const std::string& feature : case_.personal) book.noteSet(feature);
    // Rules that hold by default and speak of nothing that is set are no reason.
    for (const BrokenRule& held : book.held()) {
      if (!speaksOfSetting(held.rule)) borne_.push_back(held.rule);
    }
    plan_ = book.plan({case_.wish});
    now_ = defaultsOf(case_.domains);
    now_[case_.wish.feature] = case_.wish.value;
  }

  Kind kind() const { return plan_.kind; }
  bool namesHardware() const { return !plan_.hardware.empty(); }
  std::size_t reasons() const { return plan_.rules.size(); }
  std::size_t changes() const { return plan_.changes.size(); }

  bool changesPersonal() const {
    return std::any_of(plan_.changes.begin(), plan_.changes.end(),
                       [&](const Change& change) { return isPersonal(change.feature); });
  }

  void ask() {
    if (kind() == Kind::kFits || kind() == Kind::kMended) askLeast();
    if (kind() == Kind::kImpossible) {
      askReasons();
      askHardware();
    }
  }

 private:
  std::string about(const std::string& what) const {
    return "seed " + std::to_string(seed_) + ": " + what;
  }

  bool isPersonal(const std::string& feature) const {
    return std::find(case_.personal.begin(), case_.personal.end(), feature) != case_.personal.end();
  }

  bool speaksOfSetting(int rule) const {
    for (const auto& condition : rules_.rules[static_cast<std::size_t>(rule)].conditions) {
      if (condition.feature == case_.wish.feature || isPersonal(condition.feature)) return true;
    }
    return false;
  }

  void begin(bool hardwareIsFixed) {
    std::vector<std::string> fixed = {case_.wish.feature};
    if (hardwareIsFixed) fixed.insert(fixed.end(), case_.hardware.begin(), case_.hardware.end());
    judge_.begin(case_.domains, now_, fixed);
  }

  void forbidAll() {
    for (std::size_t rule = 0; rule < rules_.rules.size(); ++rule) {
      const bool isBorne =
          std::find(borne_.begin(), borne_.end(), static_cast<int>(rule)) != borne_.end();
      if (!isBorne) judge_.forbid(rules_.rules[rule]);
    }
  }

  void askLeast() {
    begin(true);
    forbidAll();
    const int changes = static_cast<int>(plan_.changes.size());
    judge_.expectWithin(changes - 1, {}, false, about("fewer changes are enough"));
    const auto personal = static_cast<int>(
        std::count_if(plan_.changes.begin(), plan_.changes.end(),
                      [&](const Change& change) { return isPersonal(change.feature); }));
    judge_.limit(changes);
    if (personal > 0) {
      judge_.expectWithin(personal - 1, case_.personal, false, about("fewer personal changes"));
    }
    Values after = now_;
    for (const Change& change : plan_.changes) after[change.feature] = change.to;
    for (const auto& [feature, value] : after) judge_.demand(feature, value);
    judge_.expect(true, about("the planned values"));
  }

  void askReasons() {
    begin(true);
    for (std::size_t spared = 0; spared <= plan_.rules.size(); ++spared) {
      judge_.push();
      for (std::size_t place = 0; place < plan_.rules.size(); ++place) {
        const auto rule = static_cast<std::size_t>(plan_.rules[place].rule);
        if (place != spared) judge_.forbid(rules_.rules[rule]);
      }
      const bool isSpared = spared < plan_.rules.size();
      judge_.expect(isSpared,
                    about(isSpared ? "the rules but one" : "the rules of the explanation"));
      judge_.pop();
    }
  }

  void askHardware() {
    begin(false);
    forbidAll();
    const int changes = static_cast<int>(plan_.hardware.size());
    if (changes == 0) return judge_.expect(false, about("any hardware"));
    judge_.expectWithin(changes - 1, case_.hardware, false, about("less hardware"));
    judge_.limit(changes, case_.hardware);
    const int all = changes + static_cast<int>(plan_.withHardware.size());
    judge_.expectWithin(all - 1, {}, false, about("fewer changes with the hardware"));
    for (const Change& change : plan_.hardware) judge_.demand(change.feature, change.to);
    for (const Change& change : plan_.withHardware) judge_.demand(change.feature, change.to);
    judge_.limit(all);
    judge_.expect(true, about("the values with the hardware"));
  }

  unsigned seed_;
  Case case_;
  host::Rules rules_;
  SmtJudge& judge_;
  std::vector<int> borne_;
  Plan plan_;
  Values now_;
};

TEST(Resolver, RandomRules_SaysWhatZ3Says) {
  SmtJudge judge;
  std::map<Kind, int> kinds;
  int withHardware = 0;
  int withSeveralReasons = 0;
  int withSeveralChanges = 0;
  int withPersonalChanges = 0;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    JudgedCase judged(seed, judge);
    judged.ask();
    ++kinds[judged.kind()];
    if (judged.namesHardware()) ++withHardware;
    if (judged.kind() == Kind::kImpossible && judged.reasons() > 1) ++withSeveralReasons;
    if (judged.changes() > 1) ++withSeveralChanges;
    if (judged.changesPersonal()) ++withPersonalChanges;
  }
  std::string folder = (std::filesystem::temp_directory_path() / "driver-feature-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  EXPECT_THAT(judge.disagreements(Z3_PROGRAM, folder + "/rules.smt2"), IsEmpty());
  std::filesystem::remove_all(folder);
  // Cases of every kind have been judged.
  EXPECT_EQ(kinds[Kind::kNotFound], 0);
  EXPECT_GT(kinds[Kind::kFits], 15);
  EXPECT_GT(kinds[Kind::kMended], 40);
  EXPECT_GT(kinds[Kind::kImpossible], 40);
  EXPECT_GT(withHardware, 15);
  EXPECT_GT(withSeveralReasons, 15);
  EXPECT_GT(withSeveralChanges, 15);
  EXPECT_GT(withPersonalChanges, 15);
}

}  // namespace

}  // namespace driver_feature::rules

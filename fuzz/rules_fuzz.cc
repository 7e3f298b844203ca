// Feeds arbitrary rules to the rule engine, and tries all values of the few
// features to see what it should have said: whether there is a way, and with how
// many changes.
//
// The input is the features, the rules and the wish; what is missing is 0.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/input_reader.h"
#include "host/rules/explain.h"
#include "host/rules/rulebook.h"

namespace driver_feature::fuzz {
namespace {

using Kind = rules::Plan::Kind;
using ConditionKind = host::Condition::Kind;

constexpr unsigned kMostFeatures = 5;
constexpr unsigned kMostRules = 24;
constexpr int kHighest = 6;  // Of the numbers.

// A value of each feature: the place of its choice, or its number.
using Values = std::vector<int>;

struct Printer {
  rules::Domains domains;
  host::Rules rules;
  std::vector<bool> isHardware;
  Values values;
  std::size_t wished = 0;
  int wish = 0;
};

[[noreturn]] void fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

std::string nameOf(std::size_t feature) {
  return std::string(1, static_cast<char>('A' + feature));
}

std::string choiceName(int choice) {
  return std::string(1, static_cast<char>('a' + choice));
}

bool isNumber(const rules::Domain& domain) {
  return domain.kind != rules::Domain::Kind::kChoices;
}

int valueCount(const rules::Domain& domain) {
  return isNumber(domain) ? kHighest + 1 : static_cast<int>(domain.choices.size());
}

std::string textOf(const rules::Domain& domain, int value) {
  return isNumber(domain) ? std::to_string(value) : choiceName(value);
}

rules::Domain takeDomain(InputReader& input, std::size_t feature) {
  const unsigned shape = input.takeByte();
  rules::Domain domain{.feature = nameOf(feature)};
  domain.isChangeable = shape % 16 != 15;
  if (shape % 4 == 3) {
    domain.kind = rules::Domain::Kind::kWhole;
    domain.highest = kHighest;
    return domain;
  }
  const unsigned targets = input.takeByte();
  for (unsigned choice = 0; choice <= shape % 4 + 1; ++choice) {
    domain.choices.push_back({choiceName(static_cast<int>(choice)), (targets >> choice) % 2 == 0});
  }
  domain.defaultChoice = "a";
  return domain;
}

// Names and numbers that do not fit come up as well.
host::Condition takeCondition(InputReader& input) {
  const unsigned kind = input.takeByte();
  host::Condition condition{.feature = nameOf(kind / 4 % (kMostFeatures + 1)),
                            .kind = static_cast<ConditionKind>(kind % 4),
                            .choices = {}};
  const unsigned choices = input.takeByte();
  condition.number = static_cast<double>(choices % 16) / 2;
  for (int choice = 0; choice < 5; ++choice) {
    if ((choices >> choice) % 2 == 1) condition.choices.push_back(choiceName(choice));
  }
  return condition;
}

Printer takePrinter(InputReader& input) {
  Printer printer;
  const unsigned features = 1 + input.takeByte() % kMostFeatures;
  for (std::size_t feature = 0; feature < features; ++feature) {
    printer.domains.push_back(takeDomain(input, feature));
    const unsigned value = input.takeByte();
    printer.isHardware.push_back(value % 5 == 4);
    if (printer.isHardware.back()) printer.rules.hardware.push_back({nameOf(feature)});
    const int count = valueCount(printer.domains.back());
    printer.values.push_back(static_cast<int>(value / 5) % count);
  }
  printer.wished = input.takeByte() % features;
  printer.wish = static_cast<int>(input.takeByte()) % valueCount(printer.domains[printer.wished]);
  const unsigned rules = input.takeByte() % kMostRules;
  for (unsigned rule = 0; rule < rules; ++rule) {
    host::Rule made{.id = "r" + std::to_string(rule), .text = "", .conditions = {}};
    for (unsigned left = 1 + input.takeByte() % 4; left > 0; --left) {
      made.conditions.push_back(takeCondition(input));
    }
    printer.rules.rules.push_back(std::move(made));
  }
  return printer;
}

// Whether the condition is true; nothing when it does not fit the feature.
std::optional<bool> isTrue(const Printer& printer, const host::Condition& condition,
                           const Values& values) {
  const auto feature = static_cast<std::size_t>(condition.feature[0] - 'A');
  if (feature >= printer.domains.size()) return std::nullopt;
  const rules::Domain& domain = printer.domains[feature];
  const int value = values[feature];
  if (condition.kind == ConditionKind::kAbove || condition.kind == ConditionKind::kBelow) {
    if (!isNumber(domain)) return std::nullopt;
    return condition.kind == ConditionKind::kAbove ? value > condition.number
                                                   : value < condition.number;
  }
  if (isNumber(domain) || condition.choices.empty()) return std::nullopt;
  bool isListed = false;
  for (const std::string& choice : condition.choices) {
    if (choice[0] - 'a' >= valueCount(domain)) return std::nullopt;
    if (choice[0] - 'a' == value) isListed = true;
  }
  return isListed == (condition.kind == ConditionKind::kIs);
}

bool holds(const Printer& printer, const host::Rule& rule, const Values& values) {
  bool all = true;
  for (const host::Condition& condition : rule.conditions) {
    const std::optional<bool> truth = isTrue(printer, condition, values);
    if (!truth) return false;
    all = all && *truth;
  }
  return all;
}

// Rules that hold by default refuse nothing unless they speak of the wish.
bool refuses(const Printer& printer, const Values& values) {
  const Values defaults(printer.domains.size(), 0);
  for (const host::Rule& rule : printer.rules.rules) {
    if (!holds(printer, rule, values)) continue;
    bool speaksOfWish = false;
    for (const host::Condition& condition : rule.conditions) {
      if (condition.feature == nameOf(printer.wished)) speaksOfWish = true;
    }
    if (speaksOfWish || !holds(printer, rule, defaults)) return true;
  }
  return false;
}

bool mayBe(const Printer& printer, std::size_t feature, int value) {
  const rules::Domain& domain = printer.domains[feature];
  if (value == printer.values[feature]) return true;
  if (feature == printer.wished || printer.isHardware[feature] || !domain.isChangeable) {
    return false;
  }
  return isNumber(domain) || domain.choices[static_cast<std::size_t>(value)].isTarget;
}

// The least number of changes; nothing when there is no way.
std::optional<int> leastChanges(const Printer& printer, Values& values, std::size_t feature) {
  if (feature == values.size()) {
    return refuses(printer, values) ? std::nullopt : std::optional<int>(0);
  }
  std::optional<int> least;
  const int before = values[feature];
  for (int value = 0; value < valueCount(printer.domains[feature]); ++value) {
    if (!mayBe(printer, feature, value)) continue;
    values[feature] = value;
    std::optional<int> changes = leastChanges(printer, values, feature + 1);
    if (changes && value != before) ++*changes;
    if (changes && (!least || *changes < *least)) least = changes;
  }
  values[feature] = before;
  return least;
}

void compare(const Printer& printer, const rules::Plan& plan) {
  if (plan.kind == Kind::kNotFound) fail("given up");
  Values values = printer.values;
  const std::optional<int> least = leastChanges(printer, values, 0);
  if (!least) {
    if (plan.kind != Kind::kImpossible || plan.rules.empty()) fail("there is no way");
    return;
  }
  if (plan.kind != (*least == 0 ? Kind::kFits : Kind::kMended)) fail("there is a way");
  if (plan.changes.size() != static_cast<std::size_t>(*least)) fail("not the fewest changes");
  for (const rules::Change& change : plan.changes) {
    const auto feature = static_cast<std::size_t>(change.feature[0] - 'A');
    const bool isNumeric = isNumber(printer.domains[feature]);
    values[feature] = isNumeric ? std::atoi(change.to.c_str()) : change.to[0] - 'a';
    if (!mayBe(printer, feature, values[feature])) fail("a change that is not allowed");
  }
  if (refuses(printer, values)) fail("the changes do not help");
}

void tryPrinter(Printer printer) {
  rules::Rulebook book(printer.domains, printer.rules);
  for (std::size_t feature = 0; feature < printer.values.size(); ++feature) {
    book.set({nameOf(feature), textOf(printer.domains[feature], printer.values[feature])});
  }
  const rules::Domain& wished = printer.domains[printer.wished];
  const rules::Plan plan = book.plan({{wished.feature, textOf(wished, printer.wish)}});
  rules::explain(plan, printer.rules);
  book.takeOut();
  printer.values[printer.wished] = printer.wish;
  compare(printer, plan);
}

}  // namespace
}  // namespace driver_feature::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  driver_feature::fuzz::InputReader input(data, size);
  driver_feature::fuzz::tryPrinter(driver_feature::fuzz::takePrinter(input));
  return 0;
}

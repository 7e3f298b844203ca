#include "host/ppd/queue/made_constraints.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_set>
#include <utility>

#include "host/base/text.h"

namespace driver_feature::ppd {

namespace {

using Kind = host::Condition::Kind;

// What a condition becomes, such as "*Duplex On": one of them holds exactly when
// the condition does.
using Alternatives = std::vector<std::string>;

constexpr std::size_t kMostStatements = 20000;  // Of one rule.
constexpr std::size_t kMostStatementsOfAll = 200000;
constexpr std::size_t kLongestLine = 250;  // libcups reads 255 bytes at most where it is strict.

// What a constraint that names an option alone leaves out.
bool saysOff(const NamedChoice& choice) {
  const std::string name = host::toLower(choice.name);
  return name == "none" || name == "off" || name == "false";
}

// libcups compares a constraint on a page size with that of the page, and one
// that names no size with the option.
bool isPage(const std::string& option) {
  return option == "PageSize" || option == "PageRegion";
}

class Writer {
 public:
  Writer(const MadeOptions& options, std::vector<std::string>& losses)
      : options_(options), losses_(losses) {}

  void add(const host::Rule& rule) {
    std::vector<Alternatives> conditions;
    std::size_t statements = 1;
    for (const host::Condition& condition : rule.conditions) {
      const std::string obstacle = obstacleOf(condition);
      if (!obstacle.empty()) return lose(rule, obstacle);
      conditions.push_back(alternativesOf(condition));
      statements = std::min(statements, kMostStatements + 1) * conditions.back().size();
    }
    const bool isTooMuch =
        statements > kMostStatements || written_ + statements > kMostStatementsOfAll;
    if (isTooMuch) return lose(rule, "a PPD would need too many constraints for it");
    for (std::size_t i = 0; i < statements; ++i) addStatement(conditions, i);
    written_ += statements;
  }

  std::string take() { return std::move(text_); }

 private:
  void lose(const host::Rule& rule, const std::string& reason) {
    losses_.push_back("rule " + rule.id + ": " + reason);
  }

  // Why a PPD cannot hold the condition; empty when it can.
  std::string obstacleOf(const host::Condition& condition) const {
    if (condition.kind == Kind::kAbove || condition.kind == Kind::kBelow) {
      return "a PPD has no constraints on numbers";
    }
    if (options_.contains(condition.feature)) return "";
    return "the PPD has no option " + condition.feature + " with choices";
  }

  Alternatives alternativesOf(const host::Condition& condition) const {
    const std::vector<NamedChoice>& choices = options_.at(condition.feature);
    const std::unordered_set<std::string> named(condition.choices.begin(), condition.choices.end());
    Alternatives alternatives;
    bool isAnyButOff = !isPage(condition.feature) || condition.kind == Kind::kIsNot;
    for (const NamedChoice& choice : choices) {
      const bool fits = named.contains(choice.option) == (condition.kind == Kind::kIs);
      isAnyButOff = isAnyButOff && fits != saysOff(choice);
      if (fits) alternatives.push_back("*" + condition.feature + " " + choice.name);
    }
    if (!isAnyButOff || alternatives.empty()) return alternatives;
    return {"*" + condition.feature};
  }

  // Writes the statement with the number: one of the alternatives of each
  // condition.
  void addStatement(const std::vector<Alternatives>& conditions, std::size_t number) {
    std::vector<std::string> parts;
    std::size_t size = 0;
    for (const Alternatives& alternatives : conditions) {
      parts.push_back(alternatives[number % alternatives.size()]);
      size += parts.back().size() + 1;
      number /= alternatives.size();
    }
    // A PPD's constraints are on two choices at least, which may be the same.
    if (parts.size() == 1) parts.push_back(parts.front());
    if (parts.size() == 2) {
      text_ += "*UIConstraints: " + host::join(parts, " ") + "\n";
      return;
    }
    const bool isLong = size > kLongestLine - std::string("*cupsUIConstraints: \"\"").size();
    text_ += "*cupsUIConstraints: \"" + host::join(parts, isLong ? "\n" : " ") + "\"\n";
    if (isLong) text_ += "*End\n";
  }

  const MadeOptions& options_;
  std::vector<std::string>& losses_;
  std::string text_;
  std::size_t written_ = 0;
};

}  // namespace

std::string constraintLines(const host::Rules& rules, const MadeOptions& options,
                            std::vector<std::string>& losses) {
  Writer writer(options, losses);
  for (const host::Rule& rule : rules.rules) writer.add(rule);
  return writer.take();
}

}  // namespace driver_feature::ppd

#include "host/ppd/queue/made_constraints.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

#include "host/base/text.h"
#include "host/description/switch_name.h"

namespace driver_feature::ppd {

namespace {

using Kind = host::Condition::Kind;

// What a condition becomes, such as "*Duplex On": one of them holds exactly when
// the condition does.
using Alternatives = std::vector<std::string>;

constexpr std::size_t kMostStatements = 20000;  // Of one rule.
constexpr std::size_t kMostStatementsOfAll = 200000;
constexpr std::size_t kMostListed = 5000000;
constexpr std::size_t kLongestConstraint =
    250;  // libcups reads 255 bytes at most where it is strict.

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
      auto alternatives = alternativesOf(condition);
      if (!alternatives) return lose(rule, kTooMany);
      statements = std::min(statements, kMostStatements + 1) * alternatives->size();
      conditions.push_back(std::move(*alternatives));
    }
    const bool isTooMuch =
        statements > kMostStatements || written_ + statements > kMostStatementsOfAll;
    if (isTooMuch) return lose(rule, kTooMany);
    for (std::size_t i = 0; i < statements; ++i) addStatement(conditions, i);
    written_ += statements;
  }

  std::string take() { return std::move(text_); }

 private:
  static constexpr const char* kTooMany = "a PPD would need too many constraints for it";

  // An option, and the places of its choices.
  struct Option {
    const MadeOption* made = nullptr;
    std::unordered_map<std::string, std::size_t> places;  // By their names in the description.
    std::vector<std::size_t> off;                         // Those that say so.
    std::vector<std::size_t> on;                          // The others.
  };

  void lose(const host::Rule& rule, const std::string& reason) {
    losses_.push_back("rule " + rule.id + ": " + reason);
  }

  // Why a PPD cannot hold the condition; empty when it can.
  std::string obstacleOf(const host::Condition& condition) const {
    if (condition.kind == Kind::kAbove || condition.kind == Kind::kBelow) {
      return "a PPD has no constraints on numbers";
    }
    const auto option = options_.find(condition.feature);
    if (option == options_.end()) {
      return "the PPD has no option " + condition.feature + " with choices";
    }
    if (!option->second.isSwitch) return "";
    const auto& named = condition.choices;
    const bool isOffNamed = std::count(named.begin(), named.end(), host::kSwitchedOff) != 0;
    const bool holdsForOff = isOffNamed == (condition.kind == Kind::kIs);
    return holdsForOff ? "a PPD has no constraints on what is not chosen" : "";
  }

  // The places of the choices that fulfil the condition, in their order; nothing
  // when there are too many to name them all.
  std::optional<std::vector<std::size_t>> choicesOf(const Option& option,
                                                    const host::Condition& condition) {
    std::vector<std::size_t> named;
    for (const std::string& choice : condition.choices) {
      const auto place = option.places.find(choice);
      if (place != option.places.end()) named.push_back(place->second);
    }
    std::sort(named.begin(), named.end());
    named.erase(std::unique(named.begin(), named.end()), named.end());
    if (condition.kind == Kind::kIs) return named;
    if (named == option.off) return option.on;
    listed_ += option.made->choices.size();
    if (listed_ > kMostListed) return std::nullopt;
    std::vector<std::size_t> others;
    for (std::size_t i = 0; i < option.made->choices.size(); ++i) {
      if (!std::binary_search(named.begin(), named.end(), i)) others.push_back(i);
    }
    return others;
  }

  std::optional<Alternatives> alternativesOf(const host::Condition& condition) {
    const Option& option = optionOf(condition.feature);
    const auto choices = choicesOf(option, condition);
    if (!choices) return std::nullopt;
    const std::string keyword = "*" + option.made->keyword;
    const bool isAnyButOff = *choices == option.on && !choices->empty() && !option.made->isSwitch &&
                             (condition.kind == Kind::kIsNot || !isPage(condition.feature));
    if (isAnyButOff) return Alternatives{keyword};
    Alternatives alternatives;
    for (const std::size_t choice : *choices) {
      alternatives.push_back(keyword + " " + option.made->choices[choice].name);
    }
    return alternatives;
  }

  const Option& optionOf(const std::string& feature) {
    const auto [known, isNew] = known_.try_emplace(feature);
    Option& option = known->second;
    if (!isNew) return option;
    option.made = &options_.at(feature);
    for (std::size_t i = 0; i < option.made->choices.size(); ++i) {
      const NamedChoice& choice = option.made->choices[i];
      option.places.try_emplace(choice.option, i);
      (saysOff(choice) ? option.off : option.on).push_back(i);
    }
    return option;
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
    const bool isLong = size > kLongestConstraint - std::string("*cupsUIConstraints: \"\"").size();
    text_ += "*cupsUIConstraints: \"" + host::join(parts, isLong ? "\n" : " ") + "\"\n";
    if (isLong) text_ += "*End\n";
  }

  const MadeOptions& options_;
  std::vector<std::string>& losses_;
  std::unordered_map<std::string, Option> known_;
  std::string text_;
  std::size_t written_ = 0;  // Statements.
  std::size_t listed_ = 0;   // Choices that were looked at for conditions with IsNot.
};

}  // namespace

std::string constraintLines(const host::Rules& rules, const MadeOptions& options,
                            std::vector<std::string>& losses) {
  Writer writer(options, losses);
  for (const host::Rule& rule : rules.rules) writer.add(rule);
  return writer.take();
}

}  // namespace driver_feature::ppd

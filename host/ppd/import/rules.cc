#include "host/ppd/import/rules.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "host/ppd/import/constraints.h"
#include "host/ppd/import/option_import.h"
#include "host/ppd/import/rule_features.h"
#include "host/ppd/import/rule_gathering.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

// A constraint on several options that take several choices each means many
// conflicts; beyond this it is lost.
constexpr std::size_t kMostConflicts = 1000;
// The same for all constraints of a file together. No printer's has a tenth of it.
constexpr std::size_t kMostConflictsOfAll = 1000000;

// The conflict without two terms about the same feature; nothing when it cannot
// come about.
std::optional<Conflict> normalized(const RuleFeatures& features, Conflict terms) {
  std::sort(terms.begin(), terms.end());
  Conflict conflict;
  for (const Term& term : terms) {
    if (conflict.empty() || conflict.back().feature != term.feature) {
      conflict.push_back(term);
      continue;
    }
    const std::optional<Term> merged = features.both(conflict.back(), term);
    if (!merged) return std::nullopt;
    conflict.back() = *merged;
  }
  return conflict;
}

class Reader {
 public:
  Reader(ppd_file_t& ppd, Losses& losses)
      : features_(ppd), gathering_(features_), losses_(losses) {}

  void add(const Constraint& constraint) {
    const std::string text = constraint.text();
    if (!known_.insert(text).second) return;
    std::vector<Alternatives> conditions;
    std::size_t conflicts = 1;
    for (const ConstrainedChoice& each : constraint.choices) {
      std::optional<Alternatives> condition = features_.condition(each.option, each.choice);
      if (!condition) return losses_.note(LossKind::kKeyword, kIgnored);
      conflicts = std::min(conflicts, kMostConflicts + 1) * condition->size();
      conditions.push_back(std::move(*condition));
    }
    if (conflicts > kMostConflicts) return lose(text, kMostConflicts);
    conflicts_ += conflicts;
    if (conflicts_ > kMostConflictsOfAll) return lose(text, kMostConflictsOfAll);
    for (std::size_t i = 0; i < conflicts; ++i) addConflict(conditions, i);
  }

  std::vector<host::Rule> rules() { return gathering_.rules(); }

 private:
  static constexpr const char* kIgnored =
      "constraints on options and choices that it does not have";

  void lose(const std::string& constraint, std::size_t most) {
    losses_.note(LossKind::kConstraint,
                 constraint + ": it would take more than " + std::to_string(most) + " rules");
  }

  // Adds the conflict with the number: one of the alternatives of each condition.
  void addConflict(const std::vector<Alternatives>& conditions, std::size_t number) {
    Conflict terms;
    for (const Alternatives& condition : conditions) {
      terms.push_back(condition[number % condition.size()]);
      number /= condition.size();
    }
    if (const auto conflict = normalized(features_, std::move(terms))) gathering_.add(*conflict);
  }

  std::unordered_set<std::string> known_;  // The constraints so far.
  std::size_t conflicts_ = 0;
  RuleFeatures features_;
  RuleGathering gathering_;
  Losses& losses_;
};

std::vector<host::HardwareFeature> hardwareOf(ppd_file_t& ppd) {
  std::vector<host::HardwareFeature> hardware;
  for (int i = 0; i < ppd.num_groups; ++i) {
    ppd_group_t& group = ppd.groups[i];
    if (!equalKeywords(group.name, "InstallableOptions")) continue;
    for (int j = 0; j < group.num_options; ++j) {
      ppd_option_t& option = group.options[j];
      if (option.ui != PPD_UI_PICKMANY) {
        hardware.push_back({option.keyword});
        continue;
      }
      for (const ppd_choice_t* choice : choicesOf(option)) {
        hardware.push_back({choiceFeatureName(option, *choice)});
      }
    }
  }
  return hardware;
}

}  // namespace

host::Rules rulesOf(ppd_file_t& ppd, Losses& losses) {
  Reader reader(ppd, losses);
  for (const Constraint& constraint : constraintsOf(ppd)) reader.add(constraint);
  return {reader.rules(), hardwareOf(ppd)};
}

}  // namespace driver_feature::ppd

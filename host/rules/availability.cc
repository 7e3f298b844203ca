#include "host/rules/availability.h"

namespace driver_feature::rules {

namespace {

const std::string kSensitivity = "Sensitivity";

bool isSensitive(IntermediateCoreOption& option) {
  bool sensitive = true;
  option.getOptionProperty(kSensitivity, &sensitive);
  return sensitive;
}

}  // namespace

std::vector<ImpossibleChoice> findImpossible(Resolver& resolver, const Tables& tables,
                                             const StepLimits& limits) {
  std::vector<ImpossibleChoice> impossible;
  long steps = 0;
  for (int feature = 0; feature < tables.featureCount(); ++feature) {
    if (tables.isHardware(feature) || tables.isNumber(feature)) continue;
    const int count = static_cast<int>(tables.domain(feature).choices.size());
    for (int value = 0; value < count; ++value) {
      if (steps > limits.ofAll) return impossible;
      Resolution resolution = resolver.isAllowed({feature, value}, limits.ofAChoice);
      steps += resolution.steps;
      if (resolution.kind != Resolution::Kind::kImpossible) continue;
      impossible.push_back({feature, value, std::move(resolution.rules)});
    }
  }
  return impossible;
}

OptionConstraints::OptionConstraints(const host::Model& model, const Tables& tables)
    : options_(at(tables.featureCount())) {
  for (int feature = 0; feature < tables.featureCount(); ++feature) {
    const int count = static_cast<int>(tables.domain(feature).choices.size());
    const auto view = model.features.find(tables.domain(feature).feature);
    for (int position = 0; position < count; ++position) {
      options_[at(feature)].push_back(view == model.features.end() ? nullptr
                                                                   : view->second.option(position));
      IntermediateCoreOption* option = optionAt({feature, position});
      if (option == nullptr || isSensitive(*option) || !option->isConstraintSetEmpty()) continue;
      offByThemselves_.emplace(feature, position);
    }
  }
}

void OptionConstraints::apply(const std::vector<ImpossibleChoice>& impossible) {
  std::map<Place, int> wanted;
  for (const ImpossibleChoice& choice : impossible) {
    wanted.emplace(Place(choice.feature, choice.value), choice.rules.front());
  }
  // The new constraint comes before the old one goes, so that an option which
  // stays taken out never becomes available in between.
  for (const auto& [place, rule] : wanted) {
    const auto before = takenOut_.find(place);
    if (before == takenOut_.end() || before->second != rule) takeOut(place, rule);
  }
  for (const auto& [place, rule] : takenOut_) {
    const auto now = wanted.find(place);
    if (now == wanted.end() || now->second != rule) giveBack(place, rule);
  }
  takenOut_ = std::move(wanted);
}

bool OptionConstraints::isAvailableOtherwise(int feature, int position) const {
  const Place place(feature, position);
  IntermediateCoreOption* option = optionAt(place);
  if (option == nullptr) return false;
  if (isSensitive(*option)) return true;
  const auto found = takenOut_.find(place);
  if (found == takenOut_.end() || offByThemselves_.contains(place)) return false;
  // Whether the rule's constraint is the only one can be seen without it only.
  const long id = constraintOf(found->second);
  option->removeConstraint(id);
  const bool isOnlyOne = option->isConstraintSetEmpty();
  option->addConstraint(id);
  return isOnlyOne;
}

IntermediateCoreOption* OptionConstraints::optionAt(const Place& place) const {
  const std::vector<IntermediateCoreOption*>& options = options_[at(place.first)];
  return at(place.second) < options.size() ? options[at(place.second)] : nullptr;
}

void OptionConstraints::takeOut(const Place& place, int rule) {
  IntermediateCoreOption* option = optionAt(place);
  if (option == nullptr) return;
  // Something else than a constraint has made it unavailable since.
  if (!isSensitive(*option) && option->isConstraintSetEmpty()) offByThemselves_.insert(place);
  option->addConstraint(constraintOf(rule));
  option->setOptionProperty(kSensitivity, false);
}

void OptionConstraints::giveBack(const Place& place, int rule) {
  IntermediateCoreOption* option = optionAt(place);
  if (option == nullptr) return;
  option->removeConstraint(constraintOf(rule));
  if (!option->isConstraintSetEmpty() || offByThemselves_.contains(place)) return;
  option->setOptionProperty(kSensitivity, true);
}

}  // namespace driver_feature::rules

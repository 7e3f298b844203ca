#include "host/ppd/import/rule_features.h"

#include <utility>

#include "host/base/text.h"
#include "host/ppd/import/option_import.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

constexpr const char* kCustomName = "custom";
constexpr std::size_t kTrue = 1;  // The place among the choices of one of PickMany.

// What libcups does not count as a choice where a constraint names none.
bool saysOff(const std::string& choice) {
  const std::string name = host::toLower(choice);
  return name == "none" || name == "off" || name == "false";
}

bool isPage(const ppd_option_t& option) {
  return equalKeywords(option.keyword, "PageSize") || equalKeywords(option.keyword, "PageRegion");
}

bool takesSeveral(const ppd_option_t& option) {
  return option.ui == PPD_UI_PICKMANY;
}

// The name under which libcups looks for a choice.
std::string soughtName(const std::string& choice) {
  std::string name = host::toLower(choice);
  return name.starts_with('{') || name.starts_with("custom.") ? kCustomName : name;
}

}  // namespace

RuleFeatures::RuleOption* RuleFeatures::find(const std::string& keyword) {
  ppd_option_t* option = ppdFindOption(&ppd_, keyword.c_str());
  if (option == nullptr) return nullptr;
  const auto [known, isNew] = options_.try_emplace(option);
  if (isNew) {
    known->second.option = option;
    addFeatures(known->second);
  }
  return &known->second;
}

void RuleFeatures::addFeatures(RuleOption& added) {
  ppd_option_t& option = *added.option;
  added.first = features_.size();
  const std::vector<ppd_choice_t*> choices = choicesOf(option);
  for (std::size_t i = 0; i < choices.size(); ++i) {
    added.places.try_emplace(host::toLower(std::string(choices[i]->choice)), i);
  }
  if (takesSeveral(option)) {
    for (const ppd_choice_t* choice : choices) {
      features_.push_back({choiceFeatureName(option, *choice), {"False", "True"}, {true, false}});
    }
    return;
  }
  RuleFeature feature{option.keyword, {}, {}};
  for (const ppd_choice_t* choice : choices) {
    feature.choices.emplace_back(choice->choice);
    feature.isOff.push_back(saysOff(choice->choice));
  }
  if (canBeUnset(ppd_, option)) {
    feature.choices.emplace_back(kNotSet);
    feature.isOff.push_back(true);
  }
  features_.push_back(std::move(feature));
}

Alternatives RuleFeatures::termsOf(const RuleOption& option, std::size_t place) const {
  if (takesSeveral(*option.option)) return {{option.first + place, kTrue}};
  return {{option.first, place}};
}

Alternatives RuleFeatures::anyTerms(const RuleOption& option) const {
  Alternatives terms;
  for (int i = 0; i < option.option->num_choices; ++i) {
    if (saysOff(option.option->choices[i].choice)) continue;
    if (!takesSeveral(*option.option)) return {{option.first, Term::kAny}};
    terms.push_back({option.first + static_cast<std::size_t>(i), kTrue});
  }
  return terms;
}

// libcups compares the size of the page with it, whichever of the two options
// has set it.
Alternatives RuleFeatures::sizeTerms(const std::string& name) {
  Alternatives terms;
  const RuleOption* size = find("PageSize");
  for (const RuleOption* option : {size, static_cast<const RuleOption*>(find("PageRegion"))}) {
    if (option == nullptr) continue;
    // A region of the user's own is written, and imported, as PageSize.
    if (option != size && size != nullptr && name == kCustomName) continue;
    const auto place = option->places.find(name);
    if (place == option->places.end()) continue;
    const Alternatives own = termsOf(*option, place->second);
    terms.insert(terms.end(), own.begin(), own.end());
  }
  return terms;
}

std::optional<Alternatives> RuleFeatures::condition(const std::string& option,
                                                    const std::string& choice) {
  const RuleOption* found = find(option);
  if (found == nullptr) return std::nullopt;
  if (choice.empty()) return anyTerms(*found);
  const std::string name = soughtName(choice);
  const auto place = found->places.find(name);
  if (place == found->places.end()) return std::nullopt;
  return isPage(*found->option) ? sizeTerms(name) : termsOf(*found, place->second);
}

std::optional<Term> RuleFeatures::both(const Term& one, const Term& other) const {
  if (one.choice == other.choice || other.choice == Term::kAny) {
    const bool isNever = other.choice == Term::kAny && one.choice != Term::kAny &&
                         features_[one.feature].isOff[one.choice];
    return isNever ? std::nullopt : std::optional(one);
  }
  return one.choice == Term::kAny ? both(other, one) : std::nullopt;
}

host::Condition RuleFeatures::anyOf(std::size_t feature) const {
  const RuleFeature& about = features_[feature];
  host::Condition condition{about.name, host::Condition::Kind::kIsNot, {}};
  for (std::size_t i = 0; i < about.choices.size(); ++i) {
    if (about.isOff[i]) condition.choices.push_back(about.choices[i]);
  }
  if (!condition.choices.empty()) return condition;
  return {about.name, host::Condition::Kind::kIs, about.choices};
}

host::Condition RuleFeatures::oneOf(std::size_t feature,
                                    const std::vector<std::size_t>& choices) const {
  const RuleFeature& about = features_[feature];
  host::Condition condition{about.name, host::Condition::Kind::kIs, {}};
  for (const std::size_t choice : choices) condition.choices.push_back(about.choices[choice]);
  return condition;
}

}  // namespace driver_feature::ppd

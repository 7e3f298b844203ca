#include "bench/rules_figures/subject.h"

#include <optional>

#include "bench/rules_figures/watch.h"
#include "host/base/text.h"
#include "host/ppd/import/losses.h"
#include "host/ppd/import/option_import.h"
#include "host/ppd/import/rules.h"

namespace driver_feature::figures {

namespace {

bool is(const char* keyword, const char* name) {
  return host::toLower(std::string(keyword)) == host::toLower(std::string(name));
}

bool takesSeveral(const ppd_option_t& option) {
  return option.ui == PPD_UI_PICKMANY;
}

}  // namespace

Subject::Subject(ppd::PpdPointer ppd) : ppd_(std::move(ppd)) {
  ppdMarkDefaults(ppd_.get());
  ppd::Losses losses;
  rules_ = ppd::rulesOf(*ppd_, losses);
  addDomains();
  rules::Domains copy = domains_;
  const Watch watch;
  tables_ = std::make_unique<rules::Tables>(rules_, std::move(copy));
  state_ = std::make_unique<rules::State>(*tables_);
  resolver_ = std::make_unique<rules::Resolver>(*state_);
  tableMicroseconds_ = watch.microseconds();
  addChoices();
}

void Subject::addDomains() {
  for (ppd_option_t* option : ppd::optionsOf(*ppd_)) {
    if (ppdFindOption(ppd_.get(), option->keyword) == option) addOption(*option);
  }
}

// Neither the engine nor a person moves an option to Custom without values, or
// changes PageRegion and options that take several choices.
void Subject::addOption(ppd_option_t& option) {
  if (takesSeveral(option)) {
    for (const ppd_choice_t* choice : ppd::choicesOf(option)) {
      domains_.push_back({.feature = ppd::choiceFeatureName(option, *choice),
                          .choices = {{"False"}, {"True"}},
                          .defaultChoice = choice->marked != 0 ? "True" : "False",
                          .isChangeable = false});
    }
    return;
  }
  rules::Domain domain{.feature = option.keyword,
                       .isChangeable = !is(option.keyword, "PageRegion")};
  for (const ppd_choice_t* choice : ppd::choicesOf(option)) {
    domain.choices.push_back({choice->choice, !is(choice->choice, "Custom")});
  }
  if (ppd::canBeUnset(*ppd_, option)) domain.choices.push_back({ppd::kNotSet, false});
  const ppd_choice_t* marked = ppdFindMarkedChoice(ppd_.get(), option.keyword);
  domain.defaultChoice = marked != nullptr ? marked->choice : ppd::kNotSet;
  domains_.push_back(std::move(domain));
}

void Subject::addChoices() {
  for (ppd_option_t* option : ppd::optionsOf(*ppd_)) {
    if (ppdFindOption(ppd_.get(), option->keyword) != option) continue;
    for (const ppd_choice_t* choice : ppd::choicesOf(*option)) {
      const std::string name =
          takesSeveral(*option) ? ppd::choiceFeatureName(*option, *choice) : option->keyword;
      const std::optional<int> feature = tables_->find(name);
      // A region of the user's own is a choice of PageSize in a description.
      const bool isOwnRegion = is(option->keyword, "PageRegion") && is(choice->choice, "Custom");
      if (!feature || isOwnRegion) continue;
      const int value = tables_->valueOf(*feature, takesSeveral(*option) ? "True" : choice->choice);
      choices_.push_back({option->keyword, choice->choice, *feature, value,
                          tables_->isHardware(*feature),
                          takesSeveral(*option) || is(option->keyword, "PageRegion") ||
                              is(choice->choice, "Custom")});
    }
  }
}

void Subject::markDefaults() {
  ppdMarkDefaults(ppd_.get());
  takeMarks();
}

void Subject::takeMarks() {
  for (ppd_option_t* option : ppd::optionsOf(*ppd_)) {
    for (const ppd_choice_t* choice : ppd::choicesOf(*option)) {
      if (!takesSeveral(*option)) break;
      const auto feature = tables_->find(ppd::choiceFeatureName(*option, *choice));
      if (feature) state_->set(*feature, choice->marked != 0 ? 1 : 0);
    }
    if (takesSeveral(*option)) continue;
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd_.get(), option->keyword);
    const auto feature = tables_->find(option->keyword);
    const std::string choice = marked != nullptr ? marked->choice : ppd::kNotSet;
    if (feature) state_->set(*feature, tables_->valueOf(*feature, choice));
  }
}

bool Subject::peerFinds(const PpdChoice& choice) {
  cups_option_t* options = nullptr;
  const int count =
      cupsGetConflicts(ppd_.get(), choice.option.c_str(), choice.choice.c_str(), &options);
  cupsFreeOptions(count, options);
  return count > 0;
}

// libcups compares a size of the page with the choice that is asked for, and
// looks at no other choice of the option. So PageSize and PageRegion are never
// both set here, and no other choice of the option is.
bool Subject::engineFinds(const PpdChoice& choice) {
  rules::Trial trial(*state_);
  const bool isRegion = is(choice.option.c_str(), "PageRegion");
  if (isRegion || is(choice.option.c_str(), "PageSize")) {
    const auto other = tables_->find(isRegion ? "PageSize" : "PageRegion");
    if (other) trial.take({*other, tables_->valueOf(*other, ppd::kNotSet)});
  }
  for (const PpdChoice& each : choices_) {
    const bool isOfMany = tables_->domain(each.feature).feature != each.option;
    if (isOfMany && each.option == choice.option && each.feature != choice.feature) {
      trial.take({each.feature, 0});
    }
  }
  return state_->wouldHold(choice.feature, choice.value);
}

}  // namespace driver_feature::figures

#include "host/ppd/import/additions_elements.h"

#include <algorithm>
#include <string>
#include <utility>

namespace driver_feature::ppd {

namespace {

using Kind = host::Condition::Kind;

// Whether the condition can still hold: a choice that cannot be made is never
// the current one.
bool restrict(host::Condition& condition, const ImportedNames& names) {
  if (!names.hasFeature(condition.feature)) return false;
  std::erase_if(condition.choices, [&](const std::string& choice) {
    return !names.hasOption(condition.feature, choice);
  });
  return !condition.choices.empty();
}

ImportedElement conditionElement(const host::Condition& condition) {
  const std::string word = condition.kind == Kind::kIs ? "Is" : "IsNot";
  ImportedElement element{"When", {{"Feature", condition.feature}}, {}};
  if (condition.choices.size() == 1) {
    element.attributes.emplace_back(word, condition.choices.front());
    return element;
  }
  for (const std::string& choice : condition.choices) {
    element.children.push_back({word, {{"Choice", choice}}, {}});
  }
  return element;
}

}  // namespace

host::Rules importedRules(host::Rules rules, const ImportedNames& names, Losses& losses) {
  std::erase_if(rules.rules, [&](host::Rule& rule) {
    const bool holds = std::all_of(rule.conditions.begin(), rule.conditions.end(),
                                   [&](host::Condition& each) { return restrict(each, names); });
    if (!holds) losses.note(LossKind::kConstraint, rule.id + ": its options are not carried over");
    return !holds;
  });
  std::erase_if(rules.hardware, [&](const host::HardwareFeature& feature) {
    return !names.hasFeature(feature.name);
  });
  return rules;
}

ImportedElement rulesElement(const host::Rules& rules) {
  ImportedElement element{"FeatureRules", {}, {}};
  for (const host::HardwareFeature& feature : rules.hardware) {
    element.children.push_back({"Hardware", {{"Feature", feature.name}}, {}});
  }
  for (const host::Rule& rule : rules.rules) {
    ImportedElement never{"Never", {{"Id", rule.id}}, {}};
    for (const host::Condition& condition : rule.conditions) {
      never.children.push_back(conditionElement(condition));
    }
    element.children.push_back(std::move(never));
  }
  return element;
}

ImportedElement textsElement(const host::TextsOfLanguage& texts) {
  ImportedElement element{"FeatureTexts", {{"Language", texts.language}}, {}};
  for (const host::Text& text : texts.texts) {
    ImportedElement each{"Text", {{"For", text.key}}, {}};
    each.content = text.text;
    element.children.push_back(std::move(each));
  }
  return element;
}

}  // namespace driver_feature::ppd

// The elements of rules.

#include <utility>

#include "host/base/text.h"
#include "host/description/addition_reader.h"
#include "host/description/xml_element.h"

namespace driver_feature::host {

void AdditionReader::readRules(void* element) {
  readAttributes(element, {}, {});
  forEachChild(element, [&](void* child) {
    const std::string tag = tagOf(child);
    if (tag == "Never") return readRule(child);
    if (tag == "Hardware") return readHardware(child);
    refuseChild(child, element, {"Never", "Hardware"});
  });
}

void AdditionReader::readHardware(void* element) {
  refuseChildren(element);
  if (!readAttributes(element, {"Feature"}, {"Feature"})) return;
  additions_.rules.hardware.push_back({text("Feature"), placeOf(element, "Feature")});
}

void AdditionReader::readRule(void* element) {
  bool isComplete = readAttributes(element, {"Id", "Text"}, {"Id"});
  Rule rule{text("Id"), text("Text"), {}, placeOf(element, "Id")};
  forEachChild(element, [&](void* child) {
    if (tagOf(child) != "When") {
      isComplete = false;
      return refuseChild(child, element, {"When"});
    }
    Condition condition;
    isComplete = readCondition(child, condition) && isComplete;
    rule.conditions.push_back(std::move(condition));
  });
  if (rule.conditions.empty() && isComplete) {
    refuse(element, kNoConditionCause,
           "rule " + inQuotes(rule.id) + " has no condition, and would forbid everything",
           "give it a <When>, or remove it");
    return;
  }
  if (isComplete) additions_.rules.rules.push_back(std::move(rule));
}

bool AdditionReader::readCondition(void* element, Condition& condition) {
  if (!readAttributes(element, {"Feature", "Is", "IsNot", "Above", "Below"}, {"Feature"})) {
    return false;
  }
  condition.feature = text("Feature");
  condition.place = placeOf(element, "Feature");
  struct Form {
    const char* name;
    Condition::Kind kind;
  };
  constexpr Form kForms[] = {{"Is", Condition::Kind::kIs},
                             {"IsNot", Condition::Kind::kIsNot},
                             {"Above", Condition::Kind::kAbove},
                             {"Below", Condition::Kind::kBelow}};
  int forms = pParserInstance->firstChild(element) != nullptr ? 1 : 0;
  bool isNumber = false;
  for (const Form& form : kForms) {
    if (!isGiven(form.name)) continue;
    ++forms;
    condition.kind = form.kind;
    isNumber = form.kind == Condition::Kind::kAbove || form.kind == Condition::Kind::kBelow;
    if (!isNumber && !has(form.name)) {
      refuse(element, kMissingAttributeCause,
             "the condition on " + inQuotes(condition.feature) + " has an empty " + form.name,
             "give the name of an option");
      return false;
    }
    if (!isNumber) {
      condition.choices = {text(form.name)};
      condition.choicePositions = {places_.of(element, form.name)};
    } else if (const auto value = number(element, form.name)) {
      condition.number = *value;
    } else {
      return false;
    }
  }
  if (forms == 1)
    return (!condition.choices.empty() || isNumber) || readChoices(element, condition);
  refuse(element, kConditionFormCause,
         "the condition on " + inQuotes(condition.feature) + " says " +
             (forms == 0 ? "nothing about its value" : "more than one thing about its value"),
         forms == 0 ? "give Is, IsNot, Above or Below, or elements <Is Choice=\"...\"/>"
                    : "give one of them, and the others in conditions of their own");
  return false;
}

bool AdditionReader::readChoices(void* element, Condition& condition) {
  bool isComplete = true;
  std::string first;
  forEachChild(element, [&](void* child) {
    const std::string tag = tagOf(child);
    if (tag != "Is" && tag != "IsNot") {
      isComplete = false;
      return refuseChild(child, element, {"Is", "IsNot"});
    }
    if (first.empty()) first = tag;
    if (tag != first) {
      isComplete = false;
      return refuse(child, kConditionFormCause,
                    "the condition on " + inQuotes(condition.feature) + " mixes <Is> and <IsNot>",
                    "use one of them; IsNot means none of its choices");
    }
    refuseChildren(child);
    if (!readAttributes(child, {"Choice"}, {"Choice"})) return void(isComplete = false);
    condition.choices.push_back(text("Choice"));
    condition.choicePositions.push_back(places_.of(child, "Choice"));
  });
  condition.kind = first == "IsNot" ? Condition::Kind::kIsNot : Condition::Kind::kIs;
  return isComplete;
}

}  // namespace driver_feature::host

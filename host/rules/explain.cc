#include "host/rules/explain.h"

#include <algorithm>

#include "host/description/description_index.h"

namespace driver_feature::rules {

namespace {

using ConditionKind = host::Condition::Kind;

// "a", "a and b", "a, b and c".
std::string enumerated(const std::vector<std::string>& parts, const std::string& word) {
  std::string text;
  for (std::size_t part = 0; part < parts.size(); ++part) {
    if (part > 0) text += part + 1 == parts.size() ? " " + word + " " : ", ";
    text += parts[part];
  }
  return text;
}

std::string numberWords(double number) {
  return host::numberText(static_cast<float>(number));
}

std::string conditionWords(const host::Condition& condition) {
  switch (condition.kind) {
    case ConditionKind::kIs:
      return condition.feature + "=" + enumerated(condition.choices, "or");
    case ConditionKind::kIsNot:
      return condition.feature + " other than " + enumerated(condition.choices, "or");
    case ConditionKind::kAbove:
      return condition.feature + " above " + numberWords(condition.number);
    case ConditionKind::kBelow:
      return condition.feature + " below " + numberWords(condition.number);
  }
  return condition.feature;
}

struct Part {
  std::string feature;
  std::string words;
};

std::vector<Part> partsOf(const host::Rule& rule, const std::vector<Assignment>& values) {
  std::vector<Part> parts;
  parts.reserve(std::max(values.size(), rule.conditions.size()));
  for (const Assignment& value : values) {
    parts.push_back({value.feature, value.feature + "=" + value.value});
  }
  if (!parts.empty()) return parts;
  for (const host::Condition& condition : rule.conditions) {
    parts.push_back({condition.feature, conditionWords(condition)});
  }
  return parts;
}

// The newest wish that the rule speaks of becomes the subject.
void putNewestFirst(std::vector<Part>& parts, const std::vector<Assignment>& wishes) {
  const std::vector<Assignment> newestFirst(wishes.rbegin(), wishes.rend());
  for (const Assignment& wish : newestFirst) {
    const auto found = std::find_if(parts.begin(), parts.end(),
                                    [&](const Part& part) { return part.feature == wish.feature; });
    if (found == parts.end()) continue;
    std::rotate(parts.begin(), found, found + 1);
    return;
  }
}

std::string textOf(const host::Rule& rule, const host::TextLookUp* texts) {
  if (texts == nullptr) return rule.text;
  return texts->textOf(host::ruleKey(rule.id), rule.text);
}

std::string changeWords(const Change& change) {
  return "also changes " + change.feature + ": " + change.from + " -> " + change.to;
}

std::string hardwareWords(const std::vector<Change>& hardware) {
  std::vector<std::string> parts;
  parts.reserve(hardware.size());
  for (const Change& change : hardware) parts.push_back(change.feature + "=" + change.to);
  return "possible with " + enumerated(parts, "and");
}

}  // namespace

const char* wordOf(Plan::Kind kind) {
  switch (kind) {
    case Plan::Kind::kFits:
      return "fits";
    case Plan::Kind::kMended:
      return "mended";
    case Plan::Kind::kImpossible:
      return "impossible";
    case Plan::Kind::kNotFound:
      return "not found";
  }
  return "";
}

std::string explainRule(const host::Rule& rule, const std::vector<Assignment>& values,
                        const std::vector<Assignment>& wishes, const host::TextLookUp* texts) {
  std::vector<Part> parts = partsOf(rule, values);
  putNewestFirst(parts, wishes);
  std::vector<std::string> others;
  for (std::size_t part = 1; part < parts.size(); ++part) others.push_back(parts[part].words);
  std::string line = parts.empty() ? "" : parts.front().words;
  line += others.empty() ? " cannot be chosen"
                         : " cannot be combined with " + enumerated(others, "and");
  const std::string text = textOf(rule, texts);
  return line + (text.empty() ? " (rule " + rule.id + ")" : ": " + text);
}

std::vector<std::string> explain(const Plan& plan, const host::Rules& rules,
                                 const host::TextLookUp* texts) {
  std::vector<std::string> lines;
  for (const BrokenRule& broken : plan.rules) {
    const host::Rule& rule = rules.rules[static_cast<std::size_t>(broken.rule)];
    lines.push_back(explainRule(rule, broken.values, plan.wishes, texts));
  }
  for (const Change& change : plan.changes) lines.push_back(changeWords(change));
  if (!plan.hardware.empty()) lines.push_back(hardwareWords(plan.hardware));
  for (const Change& change : plan.withHardware) lines.push_back(changeWords(change));
  if (plan.kind == Plan::Kind::kNotFound) {
    lines.push_back("no way was found within " + std::to_string(plan.steps) + " steps");
  }
  return lines;
}

}  // namespace driver_feature::rules

#include "host/ipp/constraint_parts.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "host/ipp/finishings.h"

namespace driver_feature::ipp {

namespace {

using Kind = host::Condition::Kind;

constexpr std::size_t kMostVariants = 8;

bool isAmongChoices(const ConditionCapability& condition, const std::string& choice) {
  const auto& choices = condition.choices;
  return std::find(choices.begin(), choices.end(), choice) != choices.end();
}

// Whether the condition holds for a choice of a list.
bool holdsFor(const ConditionCapability& condition, const std::string& choice) {
  return isAmongChoices(condition, choice) == (condition.kind == Kind::kIs);
}

bool isOfChoices(const ConditionCapability& condition) {
  return condition.kind == Kind::kIs || condition.kind == Kind::kIsNot;
}

// The values of one attribute with their choices.
struct Carrier {
  std::string attribute;
  Syntax syntax = Syntax::kKeyword;
  bool isMediaMember = false;
  std::vector<WordValue> values;
};

Carrier mediaCarrier(const AttributeTable& table) {
  Carrier carrier{"media", Syntax::kKeyword, false, {}};
  for (const MediaEntry& entry : table.media) {
    if (entry.choice != nullptr) carrier.values.push_back({entry.keyword, entry.choice->name});
  }
  return carrier;
}

Carrier finishingCarrier(const AttributeTable& table, const FeatureCapability& feature) {
  Carrier carrier{"finishings", Syntax::kEnum, false, {}};
  for (const FinishingEntry& entry : table.finishings) {
    if (entry.feature != &feature) continue;
    carrier.values.push_back({std::to_string(entry.number), entry.choice});
  }
  return carrier;
}

// The attributes that can say choices of the feature, the registered ones first.
std::vector<Carrier> carriersFor(const AttributeTable& table, const FeatureCapability& feature) {
  std::vector<Carrier> carriers;
  if (&feature == table.size || &feature == table.region) carriers.push_back(mediaCarrier(table));
  const Carrier finishings = finishingCarrier(table, feature);
  if (!finishings.values.empty()) carriers.push_back(finishings);
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.feature != &feature) continue;
    carriers.push_back(
        {attribute.name, attribute.syntax, attribute.isMediaMember, attribute.values});
  }
  return carriers;
}

// The condition for a client that uses this attribute; `isWhole` says whether it has a
// word for all choices for which the condition holds.
Part partFor(const Carrier& carrier, const FeatureCapability& feature,
             const ConditionCapability& condition, bool& isWhole) {
  Part part{carrier.attribute, carrier.syntax, carrier.isMediaMember, false, {}, {}, ""};
  for (const ChoiceCapability& choice : feature.choices) {
    if (choice.name == kNotSet) continue;
    const auto value = std::find_if(carrier.values.begin(), carrier.values.end(),
                                    [&](const WordValue& v) { return v.choice == choice.name; });
    const bool holds = holdsFor(condition, choice.name);
    if (value == carrier.values.end()) {
      isWhole = isWhole && !holds;
    } else if (holds) {
      part.words.push_back(value->word);
    } else if (part.remedy.empty() || choice.name == feature.value) {
      part.remedy = value->word;
    }
  }
  if (carrier.attribute == "finishings") part.remedy = std::to_string(kNoFinishing);
  return part;
}

// A part for each attribute that clients may use, up to the one that says the whole;
// none when no attribute does: clients would hear less than the truth.
std::vector<Part> choiceParts(const AttributeTable& table, const FeatureCapability& feature,
                              const ConditionCapability& condition) {
  std::vector<Part> parts;
  for (const Carrier& carrier : carriersFor(table, feature)) {
    bool isWhole = true;
    Part part = partFor(carrier, feature, condition, isWhole);
    if (!part.words.empty()) parts.push_back(std::move(part));
    if (isWhole) return parts;
  }
  return {};
}

std::optional<Part> numberPart(const AttributeTable& table, const FeatureCapability& feature,
                               const ConditionCapability& condition) {
  if (feature.kind != host::FeatureKind::kIntEntry) return std::nullopt;
  Part part;
  if (&feature == table.copies) part.attribute = "copies";
  for (const JobAttribute& attribute : table.attributes) {
    if (attribute.feature != &feature) continue;
    part.attribute = attribute.name;
    part.isMediaMember = attribute.isMediaMember;
  }
  if (part.attribute.empty()) return std::nullopt;
  part.syntax = Syntax::kInteger;
  part.isRange = true;
  part.range = rangeOf(feature);
  const double number = condition.number;
  if (condition.kind == Kind::kAbove) {
    if (number >= part.range.most) return std::nullopt;
    if (number >= part.range.least) {
      const int last = static_cast<int>(std::floor(number));
      part.remedy = std::to_string(last);
      part.range.least = last + 1;
    }
  } else {
    if (number <= part.range.least) return std::nullopt;
    if (number <= part.range.most) {
      const int first = static_cast<int>(std::ceil(number));
      part.remedy = std::to_string(first);
      part.range.most = first - 1;
    }
  }
  return part;
}

// Adds one of the alternatives to each variant. One attribute cannot ask for two of its
// values at a time.
Variants withPart(const Variants& variants, const std::vector<Part>& alternatives) {
  Variants longer;
  for (const std::vector<Part>& variant : variants) {
    for (const Part& part : alternatives) {
      const bool isTwice = std::any_of(variant.begin(), variant.end(), [&](const Part& other) {
        return other.attribute == part.attribute;
      });
      if (isTwice || longer.size() == kMostVariants) continue;
      longer.push_back(variant);
      longer.back().push_back(part);
    }
  }
  return longer;
}

}  // namespace

Variants variantsOf(const AttributeTable& table, const Capabilities& all,
                    const RuleCapability& rule) {
  Variants variants = {{}};
  for (const ConditionCapability& condition : rule.conditions) {
    const FeatureCapability* feature = all.find(condition.feature);
    if (feature == nullptr) return {};
    if (feature->isHardware && feature->isList() && isOfChoices(condition)) {
      if (!holdsFor(condition, feature->value)) return {};
      continue;
    }
    std::vector<Part> alternatives;
    if (isOfChoices(condition)) {
      alternatives = choiceParts(table, *feature, condition);
    } else if (const auto part = numberPart(table, *feature, condition)) {
      alternatives.push_back(*part);
    }
    variants = withPart(variants, alternatives);
  }
  return variants;
}

}  // namespace driver_feature::ipp

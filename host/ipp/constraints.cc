#include "host/ipp/constraints.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <map>

#include "host/ipp/finishings.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

using Kind = host::Condition::Kind;

constexpr std::size_t kMostCollections = 500;

// One condition as values of an attribute, or as a range of numbers.
struct Part {
  std::string attribute;
  Syntax syntax = Syntax::kKeyword;
  bool isMediaMember = false;
  bool isRange = false;
  IntegerRange range;
  std::vector<std::string> words;
  std::string remedy;  // A word for which the condition does not hold; may be empty.
};

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

// All choices for which the condition holds must have a word: a client would be told
// less than the truth otherwise.
std::optional<Part> choicePart(const AttributeTable& table, const FeatureCapability& feature,
                               const ConditionCapability& condition) {
  for (const Carrier& carrier : carriersFor(table, feature)) {
    Part part{carrier.attribute, carrier.syntax, carrier.isMediaMember, false, {}, {}, ""};
    bool isWhole = true;
    for (const ChoiceCapability& choice : feature.choices) {
      if (choice.name == kNotSet) continue;
      const auto value =
          std::find_if(carrier.values.begin(), carrier.values.end(),
                       [&](const WordValue& each) { return each.choice == choice.name; });
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
    if (isWhole && !part.words.empty()) return part;
  }
  return std::nullopt;
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
    if (number >= part.range.least) part.range.least = static_cast<int>(std::floor(number)) + 1;
  } else {
    if (number <= part.range.least) return std::nullopt;
    if (number <= part.range.most) part.range.most = static_cast<int>(std::ceil(number)) - 1;
  }
  return part;
}

// The parts of a rule; none when it cannot be said, or never holds.
std::vector<Part> partsOf(const AttributeTable& table, const Capabilities& all,
                          const RuleCapability& rule) {
  std::vector<Part> parts;
  for (const ConditionCapability& condition : rule.conditions) {
    const FeatureCapability* feature = all.find(condition.feature);
    if (feature == nullptr) return {};
    if (feature->isHardware && feature->isList() && isOfChoices(condition)) {
      if (!holdsFor(condition, feature->value)) return {};
      continue;
    }
    const auto part = isOfChoices(condition) ? choicePart(table, *feature, condition)
                                             : numberPart(table, *feature, condition);
    if (!part) return {};
    // One attribute cannot ask for two of its values at a time.
    const bool isTwice = std::any_of(parts.begin(), parts.end(), [&](const Part& other) {
      return other.attribute == part->attribute;
    });
    if (isTwice) return {};
    parts.push_back(*part);
  }
  return parts;
}

void addPart(ipp_t* target, const Part& part, const std::string& word) {
  if (part.isRange) {
    ippAddRange(target, IPP_TAG_ZERO, part.attribute.c_str(), part.range.least, part.range.most);
  } else {
    addWords(target, IPP_TAG_ZERO, part.attribute, part.syntax, {word});
  }
}

// A media-col for each combination of the members' values.
void addMediaParts(ipp_t* constraint, const std::vector<Part>& parts) {
  std::vector<std::vector<std::string>> combinations = {{}};
  std::vector<const Part*> members;
  for (const Part& part : parts) {
    if (!part.isMediaMember) continue;
    members.push_back(&part);
    const std::vector<std::string> words = part.isRange ? std::vector<std::string>{""} : part.words;
    std::vector<std::vector<std::string>> longer;
    for (const auto& combination : combinations) {
      for (const std::string& word : words) {
        if (longer.size() == kMostCollections) break;
        longer.push_back(combination);
        longer.back().push_back(word);
      }
    }
    combinations = std::move(longer);
  }
  if (members.empty()) return;
  std::vector<ipp_t*> collections;
  for (const auto& combination : combinations) {
    ipp_t* collection = ippNew();
    for (std::size_t i = 0; i < members.size(); ++i)
      addPart(collection, *members[i], combination[i]);
    collections.push_back(collection);
  }
  addCollections(constraint, IPP_TAG_ZERO, "media-col", std::move(collections));
}

ipp_t* constraintOf(const std::vector<Part>& parts, const std::string& name) {
  ipp_t* constraint = ippNew();
  addWords(constraint, IPP_TAG_ZERO, "resolver-name", Syntax::kName, {name});
  for (const Part& part : parts) {
    if (part.isMediaMember) continue;
    if (part.isRange) {
      addPart(constraint, part, "");
    } else {
      addWords(constraint, IPP_TAG_ZERO, part.attribute, part.syntax, part.words);
    }
  }
  addMediaParts(constraint, parts);
  return constraint;
}

// One change that ends the conflict; the last attribute that has one.
ipp_t* resolverOf(const std::vector<Part>& parts, const std::string& name) {
  const auto part = std::find_if(parts.rbegin(), parts.rend(),
                                 [](const Part& each) { return !each.remedy.empty(); });
  if (part == parts.rend()) return nullptr;
  ipp_t* resolver = ippNew();
  addWords(resolver, IPP_TAG_ZERO, "resolver-name", Syntax::kName, {name});
  if (!part->isMediaMember) {
    addPart(resolver, *part, part->remedy);
  } else {
    ipp_t* collection = ippNew();
    addPart(collection, *part, part->remedy);
    addCollections(resolver, IPP_TAG_ZERO, "media-col", {collection});
  }
  return resolver;
}

}  // namespace

void addConstraints(ipp_t* printer, const AttributeTable& table, const Capabilities& all) {
  std::vector<ipp_t*> constraints;
  std::vector<ipp_t*> resolvers;
  DistinctWords names;
  for (const RuleCapability& rule : all.rules) {
    const std::vector<Part> parts = partsOf(table, all, rule);
    if (parts.empty()) continue;
    const std::string name = names.add(keywordFor(rule.id));
    constraints.push_back(constraintOf(parts, name));
    if (ipp_t* resolver = resolverOf(parts, name)) resolvers.push_back(resolver);
  }
  addCollections(printer, IPP_TAG_PRINTER, "job-constraints-supported", std::move(constraints));
  addCollections(printer, IPP_TAG_PRINTER, "job-resolvers-supported", std::move(resolvers));
}

}  // namespace driver_feature::ipp

#include "host/ipp/constraints.h"

#include <algorithm>
#include <utility>

#include "host/ipp/constraint_parts.h"
#include "host/ipp/ipp_values.h"
#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

constexpr std::size_t kMostCollections = 500;

// About twice as many as the largest PPD has rules.
constexpr std::size_t kMostConstraints = 10000;

// What every constraint is called, besides its name. libcups (2.4, and 3.0) finds a
// conflict only when the job has all members of a constraint, and looks for a value of
// this one, too: among the job's options, and then among the printer's defaults. With a
// default that all constraints have, it finds them.
constexpr const char* kAnyRule = "rule";

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
    for (std::size_t i = 0; i < members.size(); ++i) {
      addPart(collection, *members[i], combination[i]);
    }
    collections.push_back(collection);
  }
  addCollections(constraint, IPP_TAG_ZERO, "media-col", std::move(collections));
}

ipp_t* constraintOf(const std::vector<Part>& parts, const std::string& name) {
  ipp_t* constraint = ippNew();
  addWords(constraint, IPP_TAG_ZERO, "resolver-name", Syntax::kName, {name, kAnyRule});
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

void addRemedy(ipp_t* target, const Part& part) {
  addWords(target, IPP_TAG_ZERO, part.attribute, part.syntax, {part.remedy});
}

// Changes each of which ends the conflict, of the last two attributes that have one:
// clients keep what their user has just chosen, and change the other.
ipp_t* resolverOf(const std::vector<Part>& parts, const std::string& name) {
  const std::size_t most = 2;
  std::vector<const Part*> changes;
  for (auto part = parts.rbegin(); part != parts.rend() && changes.size() < most; ++part) {
    if (!part->remedy.empty()) changes.push_back(&*part);
  }
  if (changes.empty()) return nullptr;
  ipp_t* resolver = ippNew();
  addWords(resolver, IPP_TAG_ZERO, "resolver-name", Syntax::kName, {name});
  ipp_t* members = ippNew();
  for (const Part* part : changes) addRemedy(part->isMediaMember ? members : resolver, *part);
  if (ippFirstAttribute(members) != nullptr) {
    ippAddCollection(resolver, IPP_TAG_ZERO, "media-col", members);
  }
  ippDelete(members);
  return resolver;
}

// The same with the members of media-col as attributes, as users give them to libcups.
// Of collections, libcups 2.4 finds no conflicts.
std::vector<Part> withoutCollection(std::vector<Part> parts) {
  for (Part& part : parts) part.isMediaMember = false;
  return parts;
}

class ConstraintLists {
 public:
  void add(const std::string& id, const std::vector<Part>& parts) {
    const std::string name = names_.add(keywordFor(id));
    constraints_.push_back(constraintOf(parts, name));
    if (ipp_t* resolver = resolverOf(parts, name)) resolvers_.push_back(resolver);
  }

  bool isFull() const { return constraints_.size() >= kMostConstraints; }

  void write(ipp_t* printer) {
    if (constraints_.empty()) return;
    addCollections(printer, IPP_TAG_PRINTER, "job-constraints-supported", std::move(constraints_));
    addCollections(printer, IPP_TAG_PRINTER, "job-resolvers-supported", std::move(resolvers_));
    addWords(printer, IPP_TAG_PRINTER, "resolver-name-default", Syntax::kName, {kAnyRule});
  }

 private:
  std::vector<ipp_t*> constraints_;
  std::vector<ipp_t*> resolvers_;
  DistinctWords names_;
};

}  // namespace

std::size_t addConstraints(ipp_t* printer, const AttributeTable& table, const Capabilities& all) {
  ConstraintLists lists;
  std::size_t leftOut = all.rules.size();
  for (const RuleCapability& rule : all.rules) {
    if (lists.isFull()) break;
    --leftOut;
    for (const std::vector<Part>& parts : variantsOf(table, all, rule)) {
      if (parts.empty()) continue;
      lists.add(rule.id, parts);
      const bool hasMembers = std::any_of(parts.begin(), parts.end(),
                                          [](const Part& part) { return part.isMediaMember; });
      if (hasMembers) lists.add(rule.id, withoutCollection(parts));
    }
  }
  lists.write(printer);
  return leftOut;
}

}  // namespace driver_feature::ipp

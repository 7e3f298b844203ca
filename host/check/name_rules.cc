// Names and keys that are empty, given twice, or hard to give.

#include <map>
#include <string_view>

#include "host/check/rules.h"
#include "host/description/value_source.h"

namespace driver_feature::check {

namespace {

using Owners = std::map<std::string, const host::Element*>;

std::string lineOf(const host::Element& element) {
  return "line " + std::to_string(element.position.line);
}

void checkFeatures(const host::Element& description, Owners& owners, Findings& findings) {
  forEachElement(description, [&](const host::Element& element) {
    if (element.role != host::Role::kFeature || !element.has("Name")) return;
    const host::Element*& owner = owners[element.name()];
    if (owner != nullptr) {
      findings.push_back({Code::kRepeatedFeature,
                          element.positionOf("Name"),
                          describeElement(element) + " replaces the one of " + lineOf(*owner),
                          "give each feature a name of its own",
                          {}});
    }
    owner = &element;
  });
}

// Groups are filed after what they hold, and the first of a name is found.
void listGroups(const host::Element& element, host::Role role,
                std::vector<const host::Element*>& groups) {
  for (const auto& child : element.children) listGroups(*child, role, groups);
  if (element.role == role && element.has("Name")) groups.push_back(&element);
}

void checkGroups(const host::Element& description, Owners& owners, Findings& findings) {
  std::vector<const host::Element*> groups;
  listGroups(description, host::Role::kStaticGroup, groups);
  listGroups(description, host::Role::kDynamicGroup, groups);
  for (const host::Element* group : groups) {
    const auto [owner, isNew] = owners.emplace(group->name(), group);
    if (isNew) continue;
    findings.push_back({Code::kRepeatedGroup,
                        group->positionOf("Name"),
                        describeElement(*group) + " is not found by its name; " +
                            describeElement(*owner->second) + " of " + lineOf(*owner->second) +
                            " is found in its place",
                        "give each group a name of its own",
                        {}});
  }
}

void checkOptions(const host::Element& feature, Findings& findings) {
  Owners owners;
  for (const auto& option : feature.children) {
    if (option->role != host::Role::kOption || !option->has("Name")) continue;
    const auto [owner, isNew] = owners.emplace(option->name(), option.get());
    if (isNew) continue;
    findings.push_back({Code::kRepeatedOption,
                        option->positionOf("Name"),
                        describeElement(*option) + " is not found by its name; the one of " +
                            lineOf(*owner->second) + " is",
                        "give each option of a feature a name of its own",
                        {}});
  }
}

bool isNamed(const host::Element& element) {
  return element.role == host::Role::kFeature || element.role == host::Role::kOption ||
         element.role == host::Role::kStaticGroup || element.role == host::Role::kDynamicGroup;
}

void checkEmptiness(const host::Element& element, const host::Attribute& name, Findings& findings) {
  if (!name.value.empty()) return;
  findings.push_back({Code::kEmptyName,
                      name.position,
                      "the name of this element <" + element.tag + "> is empty",
                      "name it",
                      {}});
}

void checkBlanks(const host::Element& element, const host::Attribute& name, Findings& findings) {
  constexpr std::string_view kNameBlanks = " \t\r\n";
  const std::string& text = name.value;
  const bool atBegin = text.find_first_not_of(kNameBlanks) != 0;
  const bool atEnd = text.find_last_not_of(kNameBlanks) != text.size() - 1;
  if (text.empty() || (!atBegin && !atEnd)) return;
  findings.push_back({Code::kBlankAroundName,
                      placeIn(name, atBegin ? 0 : text.find_last_not_of(kNameBlanks) + 1),
                      "the name of " + describeElement(element) + (atBegin ? " begins" : " ends") +
                          " with a blank",
                      "remove the blank",
                      {}});
}

// Settings give a feature's name or key before an equals sign.
void checkEquals(const host::Element& feature, const char* attribute, Findings& findings) {
  const host::Attribute* name = feature.find(attribute);
  if (name == nullptr || name->value.find('=') == std::string::npos) return;
  findings.push_back({Code::kEqualsInName,
                      placeIn(*name, name->value.find('=')),
                      std::string(attribute) + " of " + describeElement(feature) +
                          " holds \"=\", at which settings are split into name and value",
                      "use another character",
                      {}});
}

void checkKey(const host::Element& element, Owners& owners, Findings& findings) {
  if (!element.has("CLOKey")) return;
  const auto [owner, isNew] = owners.emplace(element.text("CLOKey"), &element);
  if (isNew) return;
  findings.push_back({Code::kRepeatedKey,
                      element.positionOf("CLOKey"),
                      "CLOKey of " + describeElement(element) + " is that of " +
                          describeElement(*owner->second) + " in " + lineOf(*owner->second) +
                          ", too",
                      "give each a key of its own",
                      {}});
}

// Records are set by their members' names, so keys in templates are not used.
void checkKeys(const host::Element& description, Findings& findings) {
  Owners features;
  forEachElement(description, [&](const host::Element& element) {
    if (element.role != host::Role::kFeature) return;
    if (!element.inTemplate) checkKey(element, features, findings);
    Owners options;
    for (const auto& option : element.children) {
      if (option->role == host::Role::kOption) checkKey(*option, options, findings);
    }
  });
}

}  // namespace

void checkNames(const host::Element& description, Findings& findings) {
  Owners owners;
  checkFeatures(description, owners, findings);
  checkGroups(description, owners, findings);
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role == host::Role::kFeature) checkOptions(element, findings);
    if (element.role == host::Role::kFeature) {
      checkEquals(element, "Name", findings);
      checkEquals(element, "CLOKey", findings);
    }
    const host::Attribute* name = element.find("Name");
    if (!isNamed(element) || name == nullptr) return;
    checkEmptiness(element, *name, findings);
    checkBlanks(element, *name, findings);
  });
  checkKeys(description, findings);
}

}  // namespace driver_feature::check

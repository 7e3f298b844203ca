// Names that are empty or given twice.

#include <map>

#include "host/check/rules.h"

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

}  // namespace

void checkNames(const host::Element& description, Findings& findings) {
  Owners owners;
  checkFeatures(description, owners, findings);
  checkGroups(description, owners, findings);
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role == host::Role::kFeature) checkOptions(element, findings);
    const host::Attribute* name = element.find("Name");
    const bool named = element.role != host::Role::kOther &&
                       element.role != host::Role::kBaseInfo &&
                       element.role != host::Role::kDescription;
    if (!named || name == nullptr || !name->value.empty()) return;
    findings.push_back({Code::kEmptyName,
                        name->position,
                        "the name of this element <" + element.tag + "> is empty",
                        "name it",
                        {}});
  });
}

}  // namespace driver_feature::check

// The names and syntaxes that go into a ticket.

#include <algorithm>
#include <map>
#include <utility>

#include "host/base/text.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

bool isControl(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

bool isBlank(char character) {
  return character == ' ' || isControl(character);
}

void checkCharacters(const host::Element& element, const char* attribute, Findings& findings) {
  const std::string name = element.text(attribute);
  const bool outer = isBlank(name.front()) || isBlank(name.back());
  if (!outer && std::none_of(name.begin(), name.end(), isControl)) return;
  findings.push_back({Code::kTicketNameCharacters,
                      element.positionOf(attribute),
                      "the ticket name \"" + host::printable(name) + "\" of " +
                          describeElement(element) +
                          (outer ? " begins or ends with a blank" : " holds a control character"),
                      "remove it",
                      {}});
}

bool hasNoValue(const host::Element& element) {
  return element.isKind(host::FeatureKind::kUIOnly) || element.isKind(host::FeatureKind::kMVCList);
}

void checkElement(const host::Element& element, Findings& findings) {
  const char* first = nullptr;
  for (const char* name : kTicketNameAttributes) {
    if (!element.has(name)) continue;
    checkCharacters(element, name, findings);
    if (first == nullptr) first = name;
  }
  if (first == nullptr) return;
  if (hasNoValue(element)) {
    findings.push_back({Code::kTicketWithoutValue,
                        element.positionOf(first),
                        describeElement(element) + " is left out of the ticket, because " +
                            wordOf(*element.kind) + " features have no value",
                        "write it by a routine, or give the feature another type",
                        {"createTicketNodeAttributes() - Feature has an invalid feature type"}});
  } else if (!element.has("TESKAttributeSyntax")) {
    findings.push_back({Code::kNoSyntax,
                        element.positionOf(first),
                        describeElement(element) + " has a ticket name and no syntax",
                        "give it TESKAttributeSyntax",
                        {}});
  }
}

// The attribute by whose name the element is in the ticket; null when it is not.
const char* usedName(const host::Element& element) {
  if (element.isMember()) {
    const char* kind = ticketNameKindOf(*element.parent);
    const bool isUsed = kind != nullptr && element.parent->has(kind) && element.has(kind);
    return isUsed ? kind : nullptr;
  }
  const auto* found =
      std::find_if(std::begin(kTicketNameAttributes), std::end(kTicketNameAttributes),
                   [&element](const char* name) { return element.has(name); });
  return found != std::end(kTicketNameAttributes) ? *found : nullptr;
}

// The nodes of one section, or of one group, by their names.
using Nodes = std::map<std::string, const host::Element*>;
using Place = std::pair<const host::Element*, bool>;  // The group, and which of the two sections.

void checkRepeated(const host::Element& element, std::map<Place, Nodes>& places,
                   Findings& findings) {
  const char* attribute = usedName(element);
  if (attribute == nullptr) return;
  const bool isSecond = attribute == std::string("TESKOAAttributeName");
  const Place place = {element.parent, isSecond && !element.isMember()};
  const auto [owner, isNew] = places[place].emplace(element.text(attribute), &element);
  if (isNew) return;
  findings.push_back({Code::kRepeatedTicketName,
                      element.positionOf(attribute),
                      "the ticket name \"" + element.text(attribute) + "\" of " +
                          describeElement(element) + " is that of " +
                          describeElement(*owner->second) + " in line " +
                          std::to_string(owner->second->position.line) + ", too",
                      "give each a name of its own",
                      {}});
}

}  // namespace

void checkTicketNames(const host::Element& description, Findings& findings) {
  std::map<Place, Nodes> places;
  forEachElement(description, [&](const host::Element& element) {
    const bool isNamed =
        element.role == host::Role::kFeature || element.role == host::Role::kStaticGroup;
    if (!isNamed || element.inTemplate) return;
    checkElement(element, findings);
    checkRepeated(element, places, findings);
  });
}

}  // namespace driver_feature::check

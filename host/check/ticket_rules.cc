// The names and syntaxes that go into a ticket.

#include <algorithm>

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

}  // namespace

void checkTicketNames(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    const bool isNamed =
        element.role == host::Role::kFeature || element.role == host::Role::kStaticGroup;
    if (isNamed && !element.inTemplate) checkElement(element, findings);
  });
}

}  // namespace driver_feature::check

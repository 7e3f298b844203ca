// What is described for a ticket but is never written to one.

#include <algorithm>
#include <iterator>

#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

constexpr const char* kJobTicket = "TESKJTAttributeName";
constexpr const char* kOutputAttribute = "TESKOAAttributeName";
constexpr const char* kRoutine = "AddVORNCallbackRoutine";

const char* firstTicketName(const host::Element& element) {
  const auto* found =
      std::find_if(std::begin(kTicketNameAttributes), std::end(kTicketNameAttributes),
                   [&element](const char* name) { return element.has(name); });
  return found != std::end(kTicketNameAttributes) ? *found : nullptr;
}

void reportUnused(const host::Element& element, const char* name, const std::string& reason,
                  Findings& findings) {
  findings.push_back(
      {Code::kUnusedTicketName,
       element.positionOf(name),
       std::string(name) + " of " + describeElement(element) + " is never used, because " + reason,
       "remove it",
       {}});
}

void reportShadowedRoutine(const host::Element& element, const char* name, Findings& findings) {
  if (!element.has(kRoutine)) return;
  findings.push_back({Code::kShadowedRoutine,
                      element.positionOf(kRoutine),
                      std::string(kRoutine) + " of " + describeElement(element) +
                          " is never called, because " + name + " comes first",
                      "remove one of the two",
                      {}});
}

// At top level the first name counts; that of installable options only in
// tickets that ask for it.
void checkTopLevel(const host::Element& element, Findings& findings) {
  const char* first = firstTicketName(element);
  if (first == nullptr) return;
  if (first != std::string("InstOptAttributeName")) {
    reportShadowedRoutine(element, first, findings);
    bool later = false;
    for (const char* name : kTicketNameAttributes) {
      if (later && element.has(name)) {
        reportUnused(element, name, std::string(first) + " comes first", findings);
      }
      later = later || name == std::string(first);
    }
  }
}

std::size_t indexIn(const host::Element& group, const host::Element& member) {
  const auto found = std::find_if(group.children.begin(), group.children.end(),
                                  [&member](const auto& child) { return child.get() == &member; });
  return static_cast<std::size_t>(found - group.children.begin());
}

void checkNamedMember(const host::Element& member, const char* kind, Findings& findings) {
  const host::Element& group = *member.parent;
  if (member.has(kind)) {
    reportShadowedRoutine(member, kind, findings);
  } else if (!member.has(kRoutine)) {
    findings.push_back(
        {Code::kMemberWithoutTicketName,
         member.position,
         describeElement(member) + " is left out of the ticket, because it has no " + kind,
         std::string("give it ") + kind + ", as its group has",
         {"processVORNStaticGroup() - Cannot get feature attribute for feature " +
          std::to_string(indexIn(group, member))}});
  }
  for (const char* name : kTicketNameAttributes) {
    if (name == std::string(kind) || !member.has(name)) continue;
    reportUnused(member, name, std::string("its group uses ") + kind, findings);
  }
}

// Whether the ticket holds any members of the group.
bool isReached(const host::Element& group, const char* kind) {
  return kind != nullptr && group.has(kind);
}

void checkMember(const host::Element& member, Findings& findings) {
  const host::Element& group = *member.parent;
  const char* kind = ticketNameKindOf(group);
  if (isReached(group, kind)) return checkNamedMember(member, kind, findings);
  const char* name = firstTicketName(member);
  // A routine of the group may read what it likes, and a group's own routine
  // is called at top level, too.
  const bool isGroup = member.role == host::Role::kStaticGroup;
  if (name == nullptr && !isGroup && member.has(kRoutine)) name = kRoutine;
  if (name == nullptr || group.has(kRoutine)) return;
  findings.push_back({Code::kUnreachableMember,
                      member.positionOf(name),
                      std::string(name) + " of " + describeElement(member) +
                          " is never written, because " + describeElement(group) +
                          " has no ticket name" + (kind != nullptr ? std::string(" ") + kind : ""),
                      std::string("give the group ") + (kind != nullptr ? kind : kJobTicket),
                      {}});
}

}  // namespace

const char* ticketNameKindOf(const host::Element& group) {
  const host::Element* outer = &group;
  while (outer->isMember()) outer = outer->parent;
  if (outer->has(kJobTicket)) return kJobTicket;
  return outer->has(kOutputAttribute) ? kOutputAttribute : nullptr;
}

void checkTicketReach(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    const bool isGroup = element.role == host::Role::kStaticGroup;
    if ((element.role != host::Role::kFeature && !isGroup) || element.inTemplate) return;
    if (element.isMember()) {
      checkMember(element, findings);
    } else {
      checkTopLevel(element, findings);
    }
  });
}

}  // namespace driver_feature::check

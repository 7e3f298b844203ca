// PostScript and PJL that is described but never written.

#include <algorithm>
#include <iterator>

#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

struct TextOutput {
  const char* words;
  const char* command;
  const char* routine;
  bool memberRunsOwnRoutine;
};

constexpr TextOutput kTextOutputs[] = {
    {"PJL", "PJLCommand", "AddPJLCallbackRoutine", false},
    {"PostScript", "PSCommand", "AddPSCallbackRoutine", true},
};

// What makes an element a part of an output.
constexpr const char* kOutputAttributes[] = {"PJLCommand",
                                             "PSCommand",
                                             "TESKOAAttributeName",
                                             "TESKJTAttributeName",
                                             "InstOptAttributeName",
                                             "NonVORNAttributeName",
                                             "AddPJLCallbackRoutine",
                                             "AddPSCallbackRoutine",
                                             "AddVORNCallbackRoutine"};

bool isWritable(const host::Element& element) {
  return element.role == host::Role::kFeature || element.role == host::Role::kStaticGroup;
}

// A ticket calls the routine of every static group without a ticket name,
// templates and groups in templates included.
bool isCalledByTicket(const host::Element& element, const std::string& name) {
  return name == "AddVORNCallbackRoutine" && element.role == host::Role::kStaticGroup &&
         !element.has("TESKJTAttributeName") && !element.has("TESKOAAttributeName");
}

// Templates and dynamic groups are in no output, but for those routines.
void checkUnwritten(const host::Element& element, Findings& findings) {
  const bool isDynamic = element.role == host::Role::kDynamicGroup;
  if (!isDynamic && !(element.inTemplate && isWritable(element))) return;
  for (const char* name : kOutputAttributes) {
    if (!element.has(name) || isCalledByTicket(element, name)) continue;
    if (isDynamic) {
      findings.push_back({Code::kDynamicGroupOutput,
                          element.positionOf(name),
                          std::string(name) + " of " + describeElement(element) +
                              " is never written, because dynamic groups are not",
                          "remove it, and let a feature's routine write the records",
                          {}});
    } else {
      findings.push_back({Code::kTemplateOutput,
                          element.positionOf(name),
                          std::string(name) + " of " + describeElement(element) +
                              " is never written, because it belongs to a template of records",
                          "remove it, and let a feature's routine write the records",
                          {}});
    }
  }
}

void checkMember(const host::Element& member, const TextOutput& output, Findings& findings) {
  const host::Element& group = *member.parent;
  if (!group.has(output.command)) {
    // A routine of the group may read any attribute.
    if (group.has(output.routine)) return;
    const char* name = member.has(output.command) ? output.command : output.routine;
    if (!member.has(name)) return;
    findings.push_back({Code::kUnreachableMember,
                        member.positionOf(name),
                        std::string(name) + " of " + describeElement(member) +
                            " is never written, because " + describeElement(group) +
                            " has neither " + output.command + " nor " + output.routine,
                        std::string("give the group ") + output.command + "=\"%s\"",
                        {}});
    return;
  }
  const bool ignored = !output.memberRunsOwnRoutine && member.role == host::Role::kFeature &&
                       !member.has(output.command) && member.has(output.routine);
  if (!ignored) return;
  findings.push_back(
      {Code::kIgnoredMemberRoutine,
       member.positionOf(output.routine),
       std::string(output.routine) + " of " + describeElement(member) +
           " is never called, because " + describeElement(group) + " writes it",
       std::string("give the feature ") + output.command + ", or move it out of the group",
       {}});
}

// A command and a routine in the same element.
void checkBoth(const host::Element& element, const TextOutput& output, Findings& findings) {
  if (!element.has(output.command) || !element.has(output.routine)) return;
  if (element.role == host::Role::kStaticGroup && !output.memberRunsOwnRoutine) {
    findings.push_back({Code::kDroppedGroupRoutine,
                        element.positionOf(output.routine),
                        std::string(output.routine) + " of " + describeElement(element) +
                            " is called for members without " + output.command +
                            ", and what it writes is dropped",
                        std::string("remove it or ") + output.command,
                        {}});
    return;
  }
  findings.push_back({Code::kShadowedRoutine,
                      element.positionOf(output.routine),
                      std::string(output.routine) + " of " + describeElement(element) +
                          " is never called, because " + output.command + " comes first",
                      "remove one of the two",
                      {}});
}

void checkSilence(const host::Element& group, Findings& findings) {
  if (group.role != host::Role::kStaticGroup || group.inTemplate) return;
  const bool writes = std::any_of(std::begin(kOutputAttributes), std::end(kOutputAttributes),
                                  [&group](const char* name) { return group.has(name); });
  if (writes) return;
  findings.push_back({Code::kSilentGroup,
                      group.position,
                      describeElement(group) + " has no command, ticket name or routine; neither "
                                               "it nor its members are written",
                      "give the group a command or a ticket name, or move its members out of it",
                      {}});
}

}  // namespace

void checkReach(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    checkUnwritten(element, findings);
    checkSilence(element, findings);
    if (!isWritable(element) || element.inTemplate) return;
    for (const TextOutput& output : kTextOutputs) {
      if (element.isMember()) checkMember(element, output, findings);
      checkBoth(element, output, findings);
    }
  });
}

}  // namespace driver_feature::check

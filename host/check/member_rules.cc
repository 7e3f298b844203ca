// Groups whose command is written around nothing.

#include <algorithm>

#include "host/check/rules.h"
#include "host/check/template_reading.h"

namespace driver_feature::check {

namespace {

struct MemberOutput {
  const char* command;
  const char* routine;
};

constexpr MemberOutput kOutputs[] = {{"PJLCommand", "AddPJLCallbackRoutine"},
                                     {"PSCommand", "AddPSCallbackRoutine"}};

bool writes(const host::Element& member, const MemberOutput& output) {
  return member.has(output.command) || member.has(output.routine);
}

void checkGroup(const host::Element& group, const MemberOutput& output, Findings& findings) {
  // Reported as such: a command that takes nothing from the members or can never
  // be written, and routines that are not called.
  const std::string command = group.text(output.command);
  if (readTemplate(command).conversion.empty() || !fits(command, Argument::kText)) return;
  if (group.has(output.routine)) return;
  const bool anyWrites =
      std::any_of(group.children.begin(), group.children.end(),
                  [&output](const auto& member) { return writes(*member, output); });
  if (anyWrites) return;
  findings.push_back(
      {Code::kNoWritingMember,
       group.positionOf(output.command),
       std::string(output.command) + " of " + describeElement(group) +
           " is written around nothing, because no member has one",
       std::string("give a member ") + output.command + ", or remove it from the group",
       {}});
}

}  // namespace

void checkMembers(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role != host::Role::kStaticGroup || element.inTemplate) return;
    for (const MemberOutput& output : kOutputs) checkGroup(element, output, findings);
  });
}

}  // namespace driver_feature::check

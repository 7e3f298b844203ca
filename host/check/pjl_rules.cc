// PJL commands: their line ends and characters.

#include <algorithm>

#include "host/base/text.h"
#include "host/check/rules.h"
#include "host/check/template_reading.h"

namespace driver_feature {

namespace {

constexpr const char* kCommand = "PJLCommand";

void reportLineEnd(const Element& element, Findings& findings) {
  findings.push_back({Code::kNoLineEnd,
                      element.positionOf(kCommand),
                      "PJLCommand of " + describeElement(element) + " does not end its line",
                      "end it with &#13;&#10;",
                      {}});
}

// The commands that come last where a template ends with its conversion: the
// options' of a list, the members' of a group.
bool isLastPart(const Element& child) {
  return child.role != Role::kOther && child.has(kCommand);
}

void checkLineEnd(const Element& element, Findings& findings) {
  const std::string command = element.text(kCommand);
  if (command.ends_with('\n')) return;
  // The commands of options are no templates.
  const bool ends = element.role != Role::kOption && readTemplate(command).endsWithConversion;
  const bool hasParts = std::any_of(element.children.begin(), element.children.end(),
                                    [](const auto& child) { return isLastPart(*child); });
  if (!ends || !hasParts) return reportLineEnd(element, findings);
  for (const auto& child : element.children) {
    if (isLastPart(*child)) checkLineEnd(*child, findings);
  }
}

// The escape character begins what frames PJL and what other printer languages
// are told.
bool isPjl(char character) {
  return (character >= ' ' && character <= '~') || character == '\t' || character == '\r' ||
         character == '\n' || character == '\x1B';
}

void checkCharacters(const Element& element, Findings& findings) {
  const std::string command = element.text(kCommand);
  for (const std::string_view character : splitCharacters(command)) {
    if (character.size() == 1 && isPjl(character.front())) continue;
    findings.push_back({Code::kNotPjl,
                        element.positionOf(kCommand),
                        "PJLCommand of " + describeElement(element) + " holds \"" +
                            printable(character) + "\", which PJL cannot carry",
                        "use ASCII characters only",
                        {}});
    return;
  }
}

// Members are looked at through the group that writes them.
bool isTopLevelOutput(const Element& element) {
  return (element.role == Role::kFeature || element.role == Role::kStaticGroup) &&
         !element.isMember() && !element.inTemplate;
}

bool isEmptyGroup(const Element& element) {
  return element.role == Role::kStaticGroup &&
         std::none_of(element.children.begin(), element.children.end(),
                      [](const auto& child) { return isLastPart(*child); }) &&
         readTemplate(element.text(kCommand)).endsWithConversion;
}

}  // namespace

void checkPjl(const Element& description, Findings& findings) {
  forEachElement(description, [&findings](const Element& element) {
    if (element.role == Role::kOther || !element.has(kCommand)) return;
    if (isTopLevelOutput(element) && !isEmptyGroup(element)) checkLineEnd(element, findings);
    checkCharacters(element, findings);
  });
}

}  // namespace driver_feature

// PJL commands: their line ends and characters.

#include <algorithm>

#include "host/base/text.h"
#include "host/check/rules.h"
#include "host/check/template_reading.h"

namespace driver_feature::check {

namespace {

constexpr const char* kCommand = "PJLCommand";

void reportLineEnd(const host::Element& element, Findings& findings) {
  findings.push_back({Code::kNoLineEnd,
                      element.positionOf(kCommand),
                      "PJLCommand of " + describeElement(element) + " does not end its line",
                      "end it with &#13;&#10;",
                      {}});
}

// The commands that come last where a template ends with its conversion: the
// options' of a list, the members' of a group.
bool isLastPart(const host::Element& child) {
  return child.role != host::Role::kOther && child.has(kCommand);
}

void checkLineEnd(const host::Element& element, Findings& findings) {
  const std::string command = element.text(kCommand);
  if (command.ends_with('\n')) return;
  // The commands of options are not templates.
  const bool ends = element.role != host::Role::kOption && readTemplate(command).endsWithConversion;
  const bool hasParts = std::any_of(element.children.begin(), element.children.end(),
                                    [](const auto& child) { return isLastPart(*child); });
  if (!ends || !hasParts) return reportLineEnd(element, findings);
  for (const auto& child : element.children) {
    if (isLastPart(*child)) checkLineEnd(*child, findings);
  }
}

// The escape character begins the sequences around PJL and the commands of
// other printer languages.
bool isPjl(char character) {
  return (character >= ' ' && character <= '~') || character == '\t' || character == '\r' ||
         character == '\n' || character == '\x1B';
}

void checkCharacters(const host::Element& element, Findings& findings) {
  const std::string command = element.text(kCommand);
  for (const std::string_view character : host::splitCharacters(command)) {
    if (character.size() == 1 && isPjl(character.front())) continue;
    findings.push_back({Code::kNotPjl,
                        element.positionOf(kCommand),
                        "PJLCommand of " + describeElement(element) + " holds \"" +
                            host::printable(character) + "\", which PJL cannot carry",
                        "use ASCII characters only",
                        {}});
    return;
  }
}

// Members are looked at through the group that writes them.
bool isTopLevelOutput(const host::Element& element) {
  return (element.role == host::Role::kFeature || element.role == host::Role::kStaticGroup) &&
         !element.isMember() && !element.inTemplate;
}

bool isEmptyGroup(const host::Element& element) {
  return element.role == host::Role::kStaticGroup &&
         std::none_of(element.children.begin(), element.children.end(),
                      [](const auto& child) { return isLastPart(*child); }) &&
         readTemplate(element.text(kCommand)).endsWithConversion;
}

}  // namespace

void checkPjl(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.role == host::Role::kOther || !element.has(kCommand)) return;
    if (isTopLevelOutput(element) && !isEmptyGroup(element)) checkLineEnd(element, findings);
    checkCharacters(element, findings);
  });
}

}  // namespace driver_feature::check

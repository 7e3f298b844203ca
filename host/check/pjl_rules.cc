// PJL commands: their line ends and characters.

#include <algorithm>

#include "host/base/text.h"
#include "host/check/rules.h"
#include "host/check/template_reading.h"
#include "host/description/value_source.h"

namespace driver_feature::check {

namespace {

constexpr const char* kCommand = "PJLCommand";

void reportLineEnd(const host::Element& element, const std::string& others, Findings& findings) {
  findings.push_back(
      {Code::kNoLineEnd,
       element.positionOf(kCommand),
       "PJLCommand of " + describeElement(element) + " does not end its line" + others,
       "end it with &#13;&#10;",
       {}});
}

// A line end, or the universal exit, after which a line begins. In templates its
// per cent sign is doubled.
bool endsLine(const host::Element& element, const std::string& command) {
  const bool isOption = element.role == host::Role::kOption;
  return command.ends_with('\n') || command.ends_with(isOption ? "\x1B%-12345X" : "\x1B%%-12345X");
}

// The commands that come last where a template ends with its conversion: the
// options' of a list, the members' of a group.
bool isLastPart(const host::Element& child) {
  return child.role != host::Role::kOther && child.has(kCommand);
}

// One finding for all options of a list: at the template when none of them ends
// the line, or else at the first that does not.
void checkOptionLineEnds(const host::Element& feature, Findings& findings) {
  std::vector<const host::Element*> open;
  long count = 0;
  for (const auto& option : feature.children) {
    if (!isLastPart(*option)) continue;
    ++count;
    if (!endsLine(*option, option->text(kCommand))) open.push_back(option.get());
  }
  if (open.empty()) return;
  if (static_cast<long>(open.size()) < count || count == 1) {
    const std::string others =
        ", like " + std::to_string(open.size() - 1) + " more of the feature's options";
    return reportLineEnd(*open.front(), open.size() > 1 ? others : "", findings);
  }
  const host::Attribute& command = *feature.find(kCommand);
  findings.push_back({Code::kNoLineEnd,
                      placeIn(command, readTemplate(command.value).place),
                      "PJLCommand of " + describeElement(feature) +
                          " does not end its line, nor does any of its " + std::to_string(count) +
                          " options",
                      "end it with &#13;&#10;",
                      {}});
}

void checkLineEnd(const host::Element& element, Findings& findings) {
  const std::string command = element.text(kCommand);
  if (endsLine(element, command)) return;
  const bool ends = readTemplate(command).endsWithConversion;
  const bool hasParts = std::any_of(element.children.begin(), element.children.end(),
                                    [](const auto& child) { return isLastPart(*child); });
  if (!ends || !hasParts) return reportLineEnd(element, "", findings);
  if (element.role == host::Role::kFeature) return checkOptionLineEnds(element, findings);
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

void checkPjlCharacters(const host::Element& element, Findings& findings) {
  const host::Attribute& command = *element.find(kCommand);
  for (const std::string_view character : host::splitCharacters(command.value)) {
    // Byte escapes that are not resolved have a rule of their own.
    const bool isCarried = character.size() == 1 && isPjl(character.front());
    if (isCarried || unreadByteEscape(character)) continue;
    findings.push_back(
        {Code::kNotPjl,
         placeIn(command, static_cast<std::size_t>(character.data() - command.value.data())),
         "PJLCommand of " + describeElement(element) + " holds \"" + host::printable(character) +
             "\", which PJL cannot carry",
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
    checkPjlCharacters(element, findings);
  });
}

}  // namespace driver_feature::check

// Command templates: whether they can be formatted, and whether they write what
// they are given.

#include <optional>
#include <string_view>

#include "host/check/rules.h"
#include "host/check/template_reading.h"
#include "host/description/value_source.h"

namespace driver_feature::check {

namespace {

// The attributes that hold templates, and how the operation that formats a
// group's template begins its log line.
struct CommandRow {
  const char* attribute;
  const char* groupOperation;
};

constexpr CommandRow kCommands[] = {{"PJLCommand", "processPJLStaticGroup()"},
                                    {"PSCommand", "processPSStaticGroup()"}};

const char* wordsOf(Argument argument) {
  switch (argument) {
    case Argument::kInt:
      return "a whole number (d, i, u, x, X, o or c)";
    case Argument::kFloat:
      return "a decimal number (f, F, e, E, g, G, a or A)";
    default:
      return "a text (s)";
  }
}

std::string refusalLine(const host::Element& element, const CommandRow& row,
                        const std::string& text) {
  if (element.role == host::Role::kStaticGroup) {
    return std::string(row.groupOperation) + " - Cannot format text with command template \"" +
           text + "\"";
  }
  return "createTicketPDLAttributes() - Cannot format value with command template \"" + text + "\"";
}

// A value that can be negative, and a conversion that has no sign.
void checkSign(const host::Element& feature, const host::Attribute& command,
               const TemplateReading& reading, Findings& findings) {
  if (std::string_view("uxXo").find(reading.conversion.back()) == std::string_view::npos) return;
  const bool isNegative = intOf(feature, "IntMinValue").value_or(0) < 0 ||
                          intOf(feature, "DefaultValue").value_or(0) < 0;
  if (!isNegative) return;
  findings.push_back({Code::kNegativeUnsigned,
                      placeIn(command, reading.place),
                      command.name + " of " + describeElement(feature) +
                          " writes negative values " + "with \"" + reading.conversion +
                          "\", which has no sign",
                      "use %d, or allow no negative values",
                      {}});
}

void checkTemplate(const host::Element& element, const CommandRow& row, Argument argument,
                   Findings& findings) {
  const host::Attribute& command = *element.find(row.attribute);
  const TemplateReading reading = readTemplate(command.value);
  const std::string owner = std::string(row.attribute) + " of " + describeElement(element);
  if (!reading.fault.empty()) {
    findings.push_back({Code::kBadTemplate,
                        placeIn(command, reading.place),
                        owner + " can never be written: " + reading.fault,
                        "write one conversion for the value, and %% for a per cent sign",
                        {refusalLine(element, row, command.value)}});
  } else if (!fits(command.value, argument)) {
    findings.push_back(
        {Code::kWrongConversion,
         placeIn(command, reading.place),
         owner + " can never be written: \"" + reading.conversion + "\" does not fit its value",
         std::string("use a conversion for ") + wordsOf(argument),
         {refusalLine(element, row, command.value)}});
  } else if (reading.conversion.empty()) {
    const bool isGroup = element.role == host::Role::kStaticGroup;
    findings.push_back(
        {Code::kNoConversion,
         command.position,
         owner + " does not write " + (isGroup ? "the text of its members" : "its value"),
         std::string("put a conversion for ") + wordsOf(argument) + " into it",
         {}});
  } else if (argument == Argument::kInt) {
    checkSign(element, command, reading, findings);
  }
}

void reportWithoutValue(const host::Element& feature, const host::Attribute& command,
                        Findings& findings) {
  findings.push_back({Code::kCommandWithoutValue,
                      command.position,
                      command.name + " of " + describeElement(feature) +
                          " is never written, because " + wordOf(*feature.kind) +
                          " features have no value",
                      "write it by a routine, or give the feature another type",
                      {"createTicketPDLAttributes() - Feature has an invalid feature type"}});
}

}  // namespace

void checkTemplates(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    const bool isGroup = element.role == host::Role::kStaticGroup;
    if (!isGroup && (element.role != host::Role::kFeature || !element.kind)) return;
    for (const CommandRow& row : kCommands) {
      if (!element.has(row.attribute)) continue;
      const auto argument = isGroup ? Argument::kText : argumentOf(*element.kind);
      if (argument) {
        checkTemplate(element, row, *argument, findings);
      } else {
        reportWithoutValue(element, *element.find(row.attribute), findings);
      }
    }
  });
}

}  // namespace driver_feature::check

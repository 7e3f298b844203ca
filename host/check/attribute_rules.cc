// Attributes that the library ignores, and values that it cannot convert.

#include <algorithm>

#include "host/base/text.h"
#include "host/check/attribute_table.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

bool isRead(const host::Element& element) {
  return element.role != host::Role::kOther;
}

// A prefix marks an attribute of another program.
bool isForeign(const host::Attribute& attribute) {
  return attribute.name.find(':') != std::string::npos;
}

std::string placeOf(const host::Element& element) {
  std::string text = describeElement(element);
  if (element.kind) text += std::string(" (") + wordOf(*element.kind) + ")";
  return text;
}

// What the library logs about an attribute that it reads and cannot use.
std::vector<std::string> linesAbout(const host::Element& element,
                                    const host::Attribute& attribute) {
  if (element.role != host::Role::kFeature || attribute.name != "Encrypted") return {};
  std::string line;
  const auto value = boolOf(element, attribute.name, &line);
  if (!value) return {line};
  return {
      "DriverFeature::setFeatureProperty(bool) - Attempt to set feature property:  "
      "\"Encrypted\" for feature \"" +
      element.name() + "\" to " + std::string(1, *value ? '\1' : '\0') +
      "where the feature is not a text valued feature."};
}

// It has an effect on the element, but only with some parsers.
void reportInnerEscapes(const host::Element& element, const host::Attribute& attribute,
                        Findings& findings) {
  findings.push_back(
      {Code::kMisplacedAttribute,
       attribute.position,
       "attribute \"ByteEscapes\" of " + placeOf(element) + " is not read by every host",
       "move it to <FeatureDescription>",
       {}});
}

void reportUnread(const host::Element& element, const host::Attribute& attribute,
                  Findings& findings) {
  if (attribute.name == "ByteEscapes") return reportInnerEscapes(element, attribute, findings);
  const std::string owners = ownersOf(attribute.name);
  if (!owners.empty()) {
    findings.push_back({Code::kMisplacedAttribute, attribute.position,
                        "attribute \"" + attribute.name + "\" has no effect on " + placeOf(element),
                        "remove it; it belongs to " + owners, linesAbout(element, attribute)});
    return;
  }
  const std::vector<std::string> names = attributeNames(element);
  findings.push_back({Code::kUnknownAttribute,
                      attribute.position,
                      "there is no attribute \"" + attribute.name + "\" of " + placeOf(element),
                      didYouMean(attribute.name, names, "remove it"),
                      {}});
}

const char* wantedForm(ValueForm form) {
  switch (form) {
    case ValueForm::kBool:
      return "give true, false, 1 or 0";
    case ValueForm::kInt:
      return "give a whole number from -2147483648 to 2147483647, without blanks";
    case ValueForm::kYesNo:
      return "give yes or no";
    default:
      return "give a decimal number with a point, without blanks";
  }
}

bool converts(const host::Element& element, const AttributeRule& rule, std::string& log) {
  switch (rule.form) {
    case ValueForm::kBool:
      return boolOf(element, rule.name, &log).has_value();
    case ValueForm::kInt:
      return intOf(element, rule.name, &log).has_value();
    case ValueForm::kFloat:
      return doubleOf(element, rule.name, &log).has_value();
    case ValueForm::kYesNo:
      return element.text(rule.name) == "yes" || element.text(rule.name) == "no";
    default:
      return true;
  }
}

}  // namespace

void checkAttributes(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (!isRead(element)) return;
    for (const host::Attribute& attribute : element.attributes) {
      if (isForeign(attribute) || findRule(element, attribute.name) != nullptr) continue;
      reportUnread(element, attribute, findings);
    }
  });
}

void checkValues(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (!isRead(element)) return;
    for (const host::Attribute& attribute : element.attributes) {
      const AttributeRule* rule = findRule(element, attribute.name);
      std::string log;
      // Without a type, the expected form of DefaultValue is unknown.
      const bool unclear = element.role == host::Role::kFeature && !element.kind;
      if (rule == nullptr || converts(element, *rule, log)) continue;
      if (unclear && rule->form != ValueForm::kBool) continue;
      findings.push_back({Code::kNotConvertible, attribute.position,
                          "\"" + attribute.value + "\" is not a value for \"" + attribute.name +
                              "\" of " + describeElement(element),
                          wantedForm(rule->form),
                          log.empty() ? std::vector<std::string>() : std::vector{log}});
    }
  });
}

}  // namespace driver_feature::check

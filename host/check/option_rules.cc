// The commands of options, and the features that put them into the output.

#include <algorithm>
#include <string_view>

#include "host/check/rules.h"
#include "host/check/template_reading.h"

namespace driver_feature::check {

namespace {

// One output: the option's command, and the feature's attributes that use it.
struct OptionOutput {
  const char* optionCommand;
  std::vector<std::string> users;  // Attributes of the feature; the last is its routine.
};

const std::vector<OptionOutput>& outputs() {
  static const std::vector<OptionOutput> kOptionOutputs = {
      {"PJLCommand", {"PJLCommand", "AddPJLCallbackRoutine"}},
      {"PSCommand", {"PSCommand", "AddPSCallbackRoutine"}},
      {"TESKCommand",
       {"TESKJTAttributeName", "TESKOAAttributeName", "InstOptAttributeName",
        "NonVORNAttributeName", "AddVORNCallbackRoutine"}}};
  return kOptionOutputs;
}

// Whether a routine of a group around the feature may write in its place.
bool isWrittenByGroupRoutine(const host::Element& feature, const std::string& routine) {
  for (const host::Element* outer = feature.parent; outer != nullptr; outer = outer->parent) {
    if (outer->role == host::Role::kStaticGroup && outer->has(routine)) return true;
  }
  return false;
}

// The filter of a print queue writes this feature's PJL after the job.
bool isEndOfJob(const host::Element& feature, const OptionOutput& output) {
  return feature.name() == "JCLEnd" && std::string_view(output.optionCommand) == "PJLCommand";
}

void checkUse(const host::Element& feature, const OptionOutput& output, Findings& findings) {
  const bool used = std::any_of(output.users.begin(), output.users.end(),
                                [&feature](const std::string& user) { return feature.has(user); });
  if (used || isWrittenByGroupRoutine(feature, output.users.back())) return;
  if (isEndOfJob(feature, output)) return;
  const auto first =
      std::find_if(feature.children.begin(), feature.children.end(),
                   [&output](const auto& option) { return option->has(output.optionCommand); });
  if (first == feature.children.end()) return;
  findings.push_back({Code::kUnusedOptionCommand,
                      (*first)->positionOf(output.optionCommand),
                      std::string(output.optionCommand) + " of the options of " +
                          describeElement(feature) + " is never written",
                      "give the feature " + output.users.front() + " or " + output.users.back() +
                          ", or remove it from the options",
                      {}});
}

// The options that do not have an attribute.
std::vector<const host::Element*> optionsWithout(const host::Element& feature,
                                                 const char* attribute) {
  std::vector<const host::Element*> options;
  for (const auto& option : feature.children) {
    if (!option->has(attribute)) options.push_back(option.get());
  }
  return options;
}

// "option "x" of feature "A" has no PSCommand, like 2 more of the feature's options".
std::string lackOf(const char* attribute, const std::vector<const host::Element*>& options) {
  std::string text = describeElement(*options.front()) + " has no " + attribute;
  if (options.size() > 1) {
    text += ", like " + std::to_string(options.size() - 1) + " more of the feature's options";
  }
  return text;
}

// Options that lack what the feature's template takes from them. A template of
// the conversion alone leaves everything to the options, and one of them may
// write nothing on purpose.
void checkTemplateOptions(const host::Element& feature, const char* command, Findings& findings) {
  if (feature.text(command) == "%s") return;
  if (readTemplate(feature.text(command)).conversion.empty()) return;
  const auto options = optionsWithout(feature, command);
  if (options.empty()) return;
  findings.push_back(
      {Code::kMissingOptionCommand,
       options.front()->positionOf(command),
       lackOf(command, options) + "; the feature's command is written with nothing in its place",
       std::string("give the option a ") + command,
       {}});
}

void checkTicketOptions(const host::Element& feature, Findings& findings) {
  const bool inTicket =
      std::any_of(std::begin(kTicketNameAttributes), std::end(kTicketNameAttributes),
                  [&feature](const char* name) { return feature.has(name); });
  if (!inTicket) return;
  const auto options = optionsWithout(feature, "TESKCommand");
  if (options.empty()) return;
  findings.push_back(
      {Code::kNoTicketCommand,
       options.front()->positionOf("TESKCommand"),
       lackOf("TESKCommand", options) + "; with it the feature is left out of the ticket",
       "give the option a TESKCommand",
       {"createTicketNodeAttributes() - Empty feature option command - skipping"}});
}

}  // namespace

void checkOptionCommands(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    // A routine may write the records of a template in any way.
    if (!element.isKind(host::FeatureKind::kMultiSelect) || element.inTemplate) return;
    for (const OptionOutput& output : outputs()) checkUse(element, output, findings);
    checkTemplateOptions(element, "PJLCommand", findings);
    checkTemplateOptions(element, "PSCommand", findings);
    checkTicketOptions(element, findings);
  });
}

}  // namespace driver_feature::check

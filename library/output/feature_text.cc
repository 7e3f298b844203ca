#include "output/feature_text.h"

#include <string_view>
#include <type_traits>

#include "model/driver_feature_option.h"
#include "model/messages.h"
#include "model/vocabulary.h"
#include "templates/command_template.h"
#include "output/output_routine.h"

namespace driver_feature {

namespace {

template <class Value>
bool readByName(CoreFeature& feature, Property property, Value& value) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return feature.getFeatureProperty(nameText(property), value);
  } else {
    return feature.getFeatureProperty(nameText(property), &value);
  }
}

// Names are the platform's to resolve, which takes most of the time when it is
// done for each of many features. Here it is done once for all of them.
bool areNamesKnown(const TextDialect& dialect) {
  for (const Property property :
       {Property::kFeatureInGroup, dialect.commandProperty, dialect.routineProperty,
        Property::kCurrentTextValue, Property::kCurrentIntValue, Property::kCurrentFloatValue}) {
    if (findProperty(nameText(property)) != property) return false;
  }
  return findOptionProperty(nameText(dialect.commandProperty)) == dialect.optionCommandProperty;
}

template <class Value>
auto valueIn(const DriverFeature& feature) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return feature.text(Property::kCurrentTextValue);
  } else if constexpr (std::is_same_v<Value, int>) {
    return feature.currentInt();
  } else {
    return feature.currentFloat();
  }
}

// The value as command templates take it.
std::string_view formatted(std::string_view value) {
  return value;
}
int formatted(int value) {
  return value;
}
double formatted(float value) {
  return static_cast<double>(value);
}

template <class Value>
void appendFormatted(std::string_view commandTemplate, const Value& value, std::string& output) {
  if (appendCommand(commandTemplate, formatted(value), output)) return;
  logComposed(Level::kWarning,
              "createTicketPDLAttributes() - Cannot format value with command template \"{}\"",
              commandTemplate);
}

}  // namespace

FeatureText::FeatureText(const TextDialect& dialect, DriverFeatureSet* set)
    : dialect_(dialect), set_(set), areNamesKnown_(areNamesKnown(dialect)) {}

std::string_view FeatureText::readText(CoreFeature& object, Property property) {
  return readByName(object, property, found_) ? std::string_view(found_) : std::string_view();
}

bool FeatureText::runRoutine(const std::string& name, std::string& text) const {
  return runTextRoutine(name, set_, text);
}

bool FeatureText::append(CoreFeature& feature, std::string& output) {
  // Most features are lists of the library's own.
  const DriverFeature* known = asKnown(feature);
  const DriverFeatureOption* option = known != nullptr ? known->ownCurrentOption() : nullptr;
  if (option != nullptr) {
    const std::string_view plain = known->plainTemplate(dialect_.commandProperty);
    if (!plain.empty()) {
      appendPlainCommand(plain, option->text(dialect_.optionCommandProperty), output);
      return true;
    }
  }
  const std::string_view command = findCommand(feature);
  if (command.empty()) return false;
  if (option != nullptr) {
    appendFormatted(command, option->text(dialect_.optionCommandProperty), output);
  } else {
    append(feature, command, output);
  }
  return true;
}

void FeatureText::append(CoreFeature& feature, std::string_view commandTemplate,
                         std::string& output) {
  switch (feature.getFeatureType()) {
    case kMultiSelect:
      return appendOption(feature, commandTemplate, output);
    case kIntEntry:
      return appendValue<int>(feature, Property::kCurrentIntValue,
                              "createTicketPDLAttributes() - Cannot get feature int value",
                              commandTemplate, output);
    case kTextEntry:
      return appendValue<std::string>(feature, Property::kCurrentTextValue,
                                      "createTicketPDLAttributes() - Cannot get feature text value",
                                      commandTemplate, output);
    case kFloatEntry:
      return appendValue<float>(feature, Property::kCurrentFloatValue,
                                "createTicketPDLAttributes() - Cannot get feature float value",
                                commandTemplate, output);
    default:
      logFixed(Level::kMisuse, "createTicketPDLAttributes() - Feature has an invalid feature type");
  }
}

void FeatureText::appendOption(CoreFeature& feature, std::string_view commandTemplate,
                               std::string& output) {
  CoreOption* option = feature.fetchCurrentOption();
  if (option == nullptr) {
    logFixed(Level::kMisuse, "createTicketPDLAttributes() - Cannot get current feature option");
    return;
  }
  const auto* own = areNamesKnown_ ? asOwn<DriverFeatureOption>(*option) : nullptr;
  if (own != nullptr) {
    appendFormatted(commandTemplate, own->text(dialect_.optionCommandProperty), output);
    return;
  }
  // An option of the host may change the feature's command: what was read before
  // counts.
  const std::string command(commandTemplate);
  optionCommand_.clear();
  if (option->getOptionProperty(nameText(dialect_.commandProperty), optionCommand_)) {
    appendFormatted(command, std::string_view(optionCommand_), output);
  } else {
    logFixed(Level::kWarning, dialect_.optionCommandUnreadable);
  }
}

template <class Value>
void FeatureText::appendValue(CoreFeature& feature, Property property, const char* unreadable,
                              std::string_view commandTemplate, std::string& output) const {
  if (const DriverFeature* known = asKnown(feature)) {
    appendFormatted(commandTemplate, valueIn<Value>(*known), output);
    return;
  }
  // A feature of the host may change its command: what was read before counts.
  const std::string command(commandTemplate);
  Value value{};
  if (readByName(feature, property, value)) {
    appendFormatted(command, value, output);
  } else {
    logFixed(Level::kMisuse, unreadable);
  }
}

}  // namespace driver_feature

#include "output/feature_text.h"

#include <string_view>
#include <type_traits>

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

// The value as command templates take it.
std::string_view formatted(const std::string& value) {
  return value;
}
int formatted(int value) {
  return value;
}
double formatted(float value) {
  return static_cast<double>(value);
}

template <class Value>
void appendFormatted(const std::string& commandTemplate, const Value& value, std::string& output) {
  if (appendCommand(commandTemplate, formatted(value), output)) return;
  logComposed(Level::kWarning,
              "createTicketPDLAttributes() - Cannot format value with command template \"{}\"",
              commandTemplate);
}

}  // namespace

bool FeatureText::isInGroup(CoreFeature& object) const {
  if (const DriverFeature* known = asKnown(object)) return known->*properties_.inGroup;
  bool inGroup = false;
  readByName(object, Property::kFeatureInGroup, inGroup);
  return inGroup;
}

const std::string* FeatureText::findCommand(CoreFeature& object) {
  return findText(object, properties_.command, dialect_.commandProperty);
}

const std::string* FeatureText::findRoutine(CoreFeature& object) {
  return findText(object, properties_.routine, dialect_.routineProperty);
}

const std::string* FeatureText::findText(CoreFeature& object,
                                         const std::string DriverFeature::*member,
                                         Property property) {
  const DriverFeature* known = asKnown(object);
  if (known == nullptr && !readByName(object, property, found_)) return nullptr;
  const std::string& text = known != nullptr ? known->*member : found_;
  return text.empty() ? nullptr : &text;
}

bool FeatureText::runRoutine(const std::string& name, std::string& text) const {
  return runTextRoutine(name, set_, text);
}

void FeatureText::append(CoreFeature& feature, const std::string& commandTemplate,
                         std::string& output) {
  switch (feature.getFeatureType()) {
    case kMultiSelect:
      return appendOption(feature, commandTemplate, output);
    case kIntEntry:
      return appendValue(feature, properties_.number, Property::kCurrentIntValue,
                         "createTicketPDLAttributes() - Cannot get feature int value",
                         commandTemplate, output);
    case kTextEntry:
      return appendValue(feature, properties_.text, Property::kCurrentTextValue,
                         "createTicketPDLAttributes() - Cannot get feature text value",
                         commandTemplate, output);
    case kFloatEntry:
      return appendValue(feature, properties_.fraction, Property::kCurrentFloatValue,
                         "createTicketPDLAttributes() - Cannot get feature float value",
                         commandTemplate, output);
    default:
      logFixed(Level::kMisuse, "createTicketPDLAttributes() - Feature has an invalid feature type");
  }
}

void FeatureText::appendOption(CoreFeature& feature, const std::string& commandTemplate,
                               std::string& output) {
  CoreOption* option = feature.fetchCurrentOption();
  if (option == nullptr) {
    logFixed(Level::kMisuse, "createTicketPDLAttributes() - Cannot get current feature option");
    return;
  }
  const DriverFeatureOption* own = areKnown_ ? asOwn<DriverFeatureOption>(*option) : nullptr;
  if (own != nullptr) {
    appendFormatted(commandTemplate, own->*properties_.optionCommand, output);
    return;
  }
  // An option of the host may change the feature's command.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): what was read before counts.
  const std::string command = commandTemplate;
  optionCommand_.clear();
  if (option->getOptionProperty(nameText(dialect_.commandProperty), optionCommand_)) {
    appendFormatted(command, optionCommand_, output);
  } else {
    logFixed(Level::kWarning, dialect_.optionCommandUnreadable);
  }
}

template <class Value>
void FeatureText::appendValue(CoreFeature& feature, const Value DriverFeature::*member,
                              Property property, const char* unreadable,
                              const std::string& commandTemplate, std::string& output) const {
  if (const DriverFeature* known = asKnown(feature)) {
    appendFormatted(commandTemplate, known->*member, output);
    return;
  }
  Value value{};
  if (readByName(feature, property, value)) {
    appendFormatted(commandTemplate, value, output);
  } else {
    logFixed(Level::kMisuse, unreadable);
  }
}

const DriverFeature* FeatureText::asKnown(const CoreFeature& object) const {
  return areKnown_ ? asOwn<DriverFeature>(object) : nullptr;
}

}  // namespace driver_feature

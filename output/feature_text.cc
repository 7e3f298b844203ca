#include "output/feature_text.h"

#include <string_view>

#include "model/messages.h"
#include "model/vocabulary.h"
#include "output/command_template.h"

namespace driver_feature {

namespace {

template <class Value>
void appendFormatted(const std::string& commandTemplate, const Value& value, std::string& output) {
  if (appendCommand(commandTemplate, value, output)) return;
  logComposed(Level::kWarning,
              "createTicketPDLAttributes() - Cannot format value with command template \"{}\"",
              commandTemplate);
}

}  // namespace

void FeatureText::append(CoreFeature& feature, const std::string& commandTemplate,
                         std::string& output) {
  switch (feature.getFeatureType()) {
    case kMultiSelect:
      return appendOption(feature, commandTemplate, output);
    case kIntEntry:
      return appendInt(feature, commandTemplate, output);
    case kTextEntry:
      return appendText(feature, commandTemplate, output);
    case kFloatEntry:
      return appendFloat(feature, commandTemplate, output);
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
  value_.clear();
  if (!option->getOptionProperty(nameText(dialect_.commandProperty), value_)) {
    logFixed(Level::kWarning, dialect_.optionCommandUnreadable);
    return;
  }
  appendFormatted(commandTemplate, std::string_view(value_), output);
}

void FeatureText::appendText(CoreFeature& feature, const std::string& commandTemplate,
                             std::string& output) {
  value_.clear();
  if (!feature.getFeatureProperty(nameText(Property::kCurrentTextValue), value_)) {
    logFixed(Level::kMisuse, "createTicketPDLAttributes() - Cannot get feature text value");
    return;
  }
  appendFormatted(commandTemplate, std::string_view(value_), output);
}

void FeatureText::appendInt(CoreFeature& feature, const std::string& commandTemplate,
                            std::string& output) const {
  int value = 0;
  if (!feature.getFeatureProperty(nameText(Property::kCurrentIntValue), &value)) {
    logFixed(Level::kMisuse, "createTicketPDLAttributes() - Cannot get feature int value");
    return;
  }
  appendFormatted(commandTemplate, value, output);
}

void FeatureText::appendFloat(CoreFeature& feature, const std::string& commandTemplate,
                              std::string& output) const {
  float value = 0;
  if (!feature.getFeatureProperty(nameText(Property::kCurrentFloatValue), &value)) {
    logFixed(Level::kMisuse, "createTicketPDLAttributes() - Cannot get feature float value");
    return;
  }
  appendFormatted(commandTemplate, static_cast<double>(value), output);
}

}  // namespace driver_feature

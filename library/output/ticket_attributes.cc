#include "output/ticket_attributes.h"

#include "model/messages.h"
#include "model/text_conversion.h"
#include "model/vocabulary.h"
#include "output/feature_text.h"
#include "output/text_dialect.h"

namespace driver_feature {

namespace {

bool readOptionCommand(CoreFeature& feature, std::string& value) {
  CoreOption* option = feature.fetchCurrentOption();
  if (option == nullptr) {
    logFixed(Level::kMisuse, "createTicketNodeAttributes() - Cannot get current feature option");
    return false;
  }
  if (!option->getOptionProperty(nameText(Property::kTESKCommand), value)) {
    logFixed(Level::kWarning,
             "createTicketNodeAttributes() - Cannot get current feature option command");
    return false;
  }
  if (value.empty()) {
    logFixed(Level::kWarning,
             "createTicketNodeAttributes() - Empty feature option command - skipping");
    return false;
  }
  return true;
}

bool readIntValue(CoreFeature& feature, std::string& value) {
  int number = 0;
  if (!feature.getFeatureProperty(nameText(Property::kCurrentIntValue), &number)) {
    logFixed(Level::kMisuse, "createTicketNodeAttributes() - Cannot get feature int value");
    return false;
  }
  value = toDecimalText(number);
  return true;
}

bool readTextValue(CoreFeature& feature, std::string& value) {
  if (!feature.getFeatureProperty(nameText(Property::kCurrentTextValue), value)) {
    logFixed(Level::kMisuse, "createTicketNodeAttributes() - Cannot get feature text value");
    return false;
  }
  if (value.empty()) {
    logFixed(Level::kWarning, "createTicketNodeAttributes() - Empty text value");
    return false;
  }
  return true;
}

bool readFloatValue(CoreFeature& feature, std::string& value) {
  float number = 0;
  if (!feature.getFeatureProperty(nameText(Property::kCurrentFloatValue), &number)) {
    logFixed(Level::kMisuse, "createTicketNodeAttributes() - Cannot get feature float value");
    return false;
  }
  value = toFixedText(static_cast<double>(number));
  return true;
}

}  // namespace

bool createTicketNodeAttributes(CoreFeature& feature, std::string& syntax, std::string& value) {
  if (!feature.getFeatureProperty(nameText(Property::kTESKAttributeSyntax), syntax)) {
    logFixed(Level::kWarning, "createTicketNodeAttributes() - Cannot get feature syntax");
    return false;
  }
  switch (feature.getFeatureType()) {
    case kMultiSelect:
      return readOptionCommand(feature, value);
    case kIntEntry:
      return readIntValue(feature, value);
    case kTextEntry:
      return readTextValue(feature, value);
    case kFloatEntry:
      return readFloatValue(feature, value);
    default:
      logFixed(Level::kMisuse,
               "createTicketNodeAttributes() - Feature has an invalid feature type");
      return false;
  }
}

void createTicketPDLAttributes(CoreFeature& feature, const std::string& commandTemplate,
                               std::string& output, bool forPostScript) {
  output.clear();
  FeatureText text(forPostScript ? kPostScript : kPJL, nullptr);
  text.append(feature, commandTemplate, output);
}

bool createTicketAttributes(CoreFeature& feature, std::string& syntax) {
  if (feature.getFeatureProperty(nameText(Property::kTESKAttributeSyntax), syntax)) return true;
  logFixed(Level::kWarning, "createTicketAttributes() - Cannot get feature syntax");
  return false;
}

}  // namespace driver_feature

#include "host/session/feature_view.h"

namespace driver_feature::host {

namespace {

// The set returns features as pointers to a class that a host does not know.
// Its first and only base is the interface, so the address is the same.
IntermediateCoreFeature* interfaceOf(DriverFeature* feature) {
  return reinterpret_cast<IntermediateCoreFeature*>(feature);
}

}  // namespace

FeatureKind FeatureView::kind() const {
  return static_cast<FeatureKind>(feature_->getFeatureType());
}

std::string FeatureView::typeName() const {
  const int code = feature_->getFeatureType();
  if (code < 0 || code >= static_cast<int>(featureTypeWords().size())) {
    return "type " + std::to_string(code);
  }
  return wordOf(kind());
}

int FeatureView::currentInt() const {
  int value = 0;
  feature_->getFeatureProperty(std::string("CurrentIntValue"), &value);
  return value;
}

float FeatureView::currentFloat() const {
  float value = 0;
  feature_->getFeatureProperty(std::string("CurrentFloatValue"), &value);
  return value;
}

std::string FeatureView::displayTextOf(const std::string& option) const {
  std::string text;
  const int count = kind() == FeatureKind::kMultiSelect ? feature_->fetchNumberOfOptions() : 0;
  for (int position = 0; position < count; ++position) {
    if (choiceAt(position).name != option) continue;
    feature_->fetchOptionByIndex(position)->getOptionProperty(std::string("DisplayText"), text);
    break;
  }
  return text;
}

bool FeatureView::isAtDefault() const {
  switch (kind()) {
    case FeatureKind::kMultiSelect:
    case FeatureKind::kIntEntry:
      return defaultInt() == currentInt();
    case FeatureKind::kFloatEntry:
      return defaultFloat() == currentFloat();
    case FeatureKind::kTextEntry:
      return defaultText() == currentText();
    default:
      return true;
  }
}

std::string FeatureView::currentText() const {
  std::string value;
  feature_->getFeatureProperty(std::string("CurrentTextValue"), value);
  return value;
}

int FeatureView::defaultInt() const {
  int value = 0;
  feature_->getFeatureProperty(std::string("DefaultIntValue"), &value);
  return value;
}

float FeatureView::defaultFloat() const {
  float value = 0;
  feature_->getFeatureProperty(std::string("DefaultFloatValue"), &value);
  return value;
}

std::optional<std::string> FeatureView::currentChoice() const {
  if (kind() != FeatureKind::kMultiSelect) return std::nullopt;
  return nameAt(currentInt());
}

std::string FeatureView::defaultText() const {
  std::string value;
  feature_->getFeatureProperty(std::string("DefaultTextValue"), value);
  return value;
}

std::optional<std::string> FeatureView::defaultChoice() const {
  if (kind() != FeatureKind::kMultiSelect) return std::nullopt;
  return nameAt(defaultInt());
}

// A routine may have stored any position; the library logs a look-up outside.
std::optional<std::string> FeatureView::nameAt(int position) const {
  if (position < 0 || position >= feature_->fetchNumberOfOptions()) return std::nullopt;
  return choiceAt(position).name;
}

std::vector<Choice> FeatureView::choices() const {
  std::vector<Choice> choices;
  // The library logs a request for the options of any other feature as misuse.
  if (kind() != FeatureKind::kMultiSelect) return choices;
  const int count = feature_->fetchNumberOfOptions();
  for (int position = 0; position < count; ++position) choices.push_back(choiceAt(position));
  return choices;
}

// The library makes options of one class only, of which the interface is the
// first and only base.
IntermediateCoreOption* FeatureView::option(int position) const {
  const int count = kind() == FeatureKind::kMultiSelect ? feature_->fetchNumberOfOptions() : 0;
  if (position < 0 || position >= count) return nullptr;
  return static_cast<IntermediateCoreOption*>(feature_->fetchOptionByIndex(position));
}

std::string FeatureView::command(const std::string& property) const {
  std::string text;
  feature_->getFeatureProperty(property, text);
  return text;
}

bool FeatureView::setValue(const std::string& text) const {
  return feature_->setFeatureProperty(std::string("ValueString"), text);
}

bool FeatureView::flag(const std::string& property) const {
  bool value = true;
  feature_->getFeatureProperty(property, &value);
  return value;
}

Choice FeatureView::choiceAt(int position) const {
  Choice choice;
  CoreOption* option = feature_->fetchOptionByIndex(position);
  if (option == nullptr) return choice;
  option->getOptionProperty(std::string("Name"), choice.name);
  option->getOptionProperty(std::string("Sensitivity"), &choice.available);
  option->getOptionProperty(std::string("Visibility"), &choice.visible);
  return choice;
}

FeatureMap featuresOf(CoreFeatureSet& set) {
  FeatureMap features;
  const int count = set.fetchNumberOfFeatures();
  for (int index = 0; index < count; ++index) {
    IntermediateCoreFeature* feature = interfaceOf(set.fetchFeatureByIndex(index));
    if (feature == nullptr) continue;
    std::string name;
    feature->getFeatureProperty(std::string("Name"), name);
    features.emplace(name, FeatureView(*feature));
  }
  return features;
}

}  // namespace driver_feature::host

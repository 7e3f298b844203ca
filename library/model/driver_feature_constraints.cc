// What the host's constraints do to a feature and its options.

#include "model/driver_feature.h"

bool DriverFeature::applyOptionConstraint(const std::string& optionName, long id, bool hide) {
  if (id < 0) return false;
  CoreOption* option = fetchOptionByName(optionName);
  if (option == nullptr) return false;
  if (fetchCurrentOption() == option) {
    int position = currentInt_;
    if (!findNextAvailableOption(&position)) return false;
    setFeatureProperty(std::string("CurrentIntValue"), position);
  }
  if (auto* constrained = dynamic_cast<IntermediateCoreOption*>(option)) {
    constrained->addConstraint(id);
  }
  option->setOptionProperty(std::string("Sensitivity"), false);
  if (hide) option->setOptionProperty(std::string("Visibility"), false);
  return true;
}

bool DriverFeature::isConstraintSetEmpty() {
  return constraints_.isEmpty();
}

bool DriverFeature::addConstraint(const long& id) {
  return constraints_.insert(id);
}

bool DriverFeature::removeConstraint(const long& id) {
  return constraints_.erase(id);
}

std::set<long>* DriverFeature::getConstraintSet() {
  return &constraints_.identifiers();
}

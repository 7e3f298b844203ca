// Saving current values into the original copies, and restoring them.

#include <string>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "model/messages.h"
#include "model/vocabulary.h"

#include "AttributeMap.h"

namespace {

using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::MessageText;

// The property that holds a feature's value, by where the value is.
struct ValueNames {
  const char* text;
  const char* number;
  const char* fraction;
};

constexpr ValueNames kCurrent = {"CurrentTextValue", "CurrentIntValue", "CurrentFloatValue"};
constexpr ValueNames kOriginal = {"OriginalTextValue", "OriginalIntValue", "OriginalFloatValue"};

// Required: one of each for a whole run, so that a value that cannot be read
// is written as the one before it.
struct Values {
  std::string text;
  int number = 0;
  float fraction = 0;
};

void copyValue(CoreFeature& feature, const ValueNames& from, const ValueNames& to, Values& values) {
  switch (feature.getFeatureType()) {
    case driver_feature::kTextEntry:
      feature.getFeatureProperty(std::string(from.text), values.text);
      feature.setFeatureProperty(std::string(to.text), values.text);
      break;
    case driver_feature::kFloatEntry:
      feature.getFeatureProperty(std::string(from.fraction), &values.fraction);
      feature.setFeatureProperty(std::string(to.fraction), values.fraction);
      break;
    case driver_feature::kMultiSelect:
    case driver_feature::kIntEntry:
      feature.getFeatureProperty(std::string(from.number), &values.number);
      feature.setFeatureProperty(std::string(to.number), values.number);
      break;
    default:
      break;
  }
}

void copyValues(AttributeMap& names, const ValueNames& from, const ValueNames& to,
                MessageText<1> notFound) try {
  Values values;
  std::string name;
  std::string ignored;
  for (long index = 0; index < names.size(); ++index) {
    names.fetchAttributeValueByIndex(index, name, ignored);
    DriverFeatureSet& set = driver_feature::masterSet();
    if (CoreFeature* feature = set.FindFeatureInFeatureList(name)) {
      copyValue(*feature, from, to, values);
    } else {
      logComposed(Level::kMisuse, notFound, name);
    }
  }
} catch (...) {
  // Nothing is thrown at the host; what has been copied by then stays copied.
}

}  // namespace

void SaveCurrentFeatureValues(AttributeMap& names) {
  copyValues(names, kCurrent, kOriginal, "SaveCurrentFeatureValues() - Cannot find feature \"{}\"");
}

void RestoreOriginalFeatureValues(AttributeMap& names) {
  copyValues(names, kOriginal, kCurrent,
             "RestoreOriginalFeatureValues() - Cannot find feature \"{}\"");
}

// Saving current values into the original copies, and restoring them.

#include <cstddef>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "frame/exports.h"
#include "frame/master_set.h"
#include "model/messages.h"
#include "model/vocabulary.h"

#include "AttributeMap.h"

namespace {

using driver_feature::FeatureList;
using driver_feature::Level;
using driver_feature::logComposed;
using driver_feature::masterSet;
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

// The names in a map, by position. The platform's map finds an entry by walking over
// those before it, so that with many names the time would grow with their square.
class NamesOfMap {
 public:
  explicit NamesOfMap(AttributeMap& map) : map_(map) {
    try {
      listFeatures();
    } catch (const std::bad_alloc&) {
      listed_.clear();
    }
  }

  // Fetches a name as the map does.
  void fetch(long index, std::string& name) {
    const auto position = static_cast<std::size_t>(index);
    if (isListed(position)) {
      name = listed_[position];
    } else {
      map_.fetchAttributeValueByIndex(index, name, ignored_);
    }
  }

 private:
  // Maps and the set are both in the byte order of the names: where every name in
  // the map is a feature's, asking for the features in turn gives them in order.
  void listFeatures() {
    const long count = map_.size();
    FeatureList& features = masterSet().list();
    // With few names, walking takes less than asking for each feature.
    if (count < kMany || features.featureCount() / count > count / kMany) return;
    for (int i = 0; i < features.featureCount(); ++i) {
      std::string name(features.featureNameAt(i));
      if (holds(name)) listed_.push_back(std::move(name));
    }
    if (static_cast<long>(listed_.size()) != count) listed_.clear();
  }

  // Whether the list is still right at that position: routines of the host may
  // change the map.
  bool isListed(std::size_t position) {
    return static_cast<long>(listed_.size()) == map_.size() && position < listed_.size() &&
           holds(listed_[position]);
  }

  bool holds(const std::string& name) {
    return map_.loadMapVariable(name, ignored_, static_cast<const std::string*>(nullptr));
  }

  static constexpr long kMany = 64;

  AttributeMap& map_;
  std::vector<std::string> listed_;  // Empty where the map has to be walked.
  std::string ignored_;
};

void copyValues(AttributeMap& map, const ValueNames& from, const ValueNames& to,
                MessageText<1> notFound) try {
  Values values;
  NamesOfMap names(map);
  std::string name;
  for (long index = 0; index < map.size(); ++index) {
    names.fetch(index, name);
    DriverFeatureSet& set = masterSet();
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

// The models that are measured: list features with five choices each, about
// 35 bytes of PostScript per feature.
#ifndef BENCH_MODEL_H_
#define BENCH_MODEL_H_

#include <map>
#include <string>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_set.h"

namespace driver_feature::bench {

// "Feature00042": names whose order is that of their numbers.
inline std::string featureName(int number) {
  const std::string digits = std::to_string(number);
  return "Feature" + std::string(5 - digits.size(), '0') + digits;
}

inline void setText(CoreFeature& feature, const std::string& property, const std::string& value) {
  feature.setFeatureProperty(property, value);
}

inline DriverFeature* makeFeature(int number) {
  auto* feature = new DriverFeature(featureName(number));
  setText(*feature, "PSCommand", "<< /" + featureName(number) + " %s >> set\n");
  setText(*feature, "PJLCommand", "@PJL SET " + featureName(number) + "=%s\r\n");
  setText(*feature, "TESKJTAttributeName", featureName(number));
  setText(*feature, "TESKAttributeSyntax", "keyword");
  for (const std::string choice : {"A", "B", "C", "D", "E"}) {
    auto* option = new DriverFeatureOption("Choice" + choice);
    for (const std::string property : {"PSCommand", "PJLCommand", "TESKCommand"}) {
      option->setOptionProperty(property, "value" + choice);
    }
    feature->addOptionToFeature(option);
  }
  return feature;
}

// A set of so many features, made once and kept, as a host's is.
inline DriverFeatureSet& modelOf(int features) {
  static std::map<int, DriverFeatureSet*> models;
  DriverFeatureSet*& model = models[features];
  if (model == nullptr) {
    model = new DriverFeatureSet;
    for (int i = 0; i < features; ++i) {
      model->addFeatureToFeatureList(featureName(i), makeFeature(i));
    }
  }
  return *model;
}

}  // namespace driver_feature::bench

#endif  // BENCH_MODEL_H_

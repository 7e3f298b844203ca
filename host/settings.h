// Settings of the form NAME=VALUE: checked against what the description
// allows, then stored through the library's property interface.
#ifndef HOST_SETTINGS_H_
#define HOST_SETTINGS_H_

#include <optional>
#include <string>

#include "host/description_index.h"
#include "host/feature_view.h"

namespace driver_feature {

// The loaded features, with what the description says about them.
struct Model {
  FeatureMap features;
  DescriptionIndex index;
  std::string file;               // The description's path, for messages.
  CoreFeatureSet* set = nullptr;  // Of the features. Belongs to the library.
  // Whether values are taken that can end the command they are written into.
  bool allowsControlCharacters = false;
  // How to have them taken, as a part of the sentence that refuses one; empty
  // where there is no way.
  std::string allowance = ", or run with --allow-control-characters to write it as it is";
};

struct Setting {
  std::string name;
  std::string value;
};

// Why a setting was refused and what to do instead, in one sentence.
using Refusal = std::optional<std::string>;

// Splits NAME=VALUE at the first equals sign. Refused without one and with an
// empty name; `setting` is then left alone.
Refusal parseSetting(const std::string& text, Setting& setting);

// Checks a setting in the present state of the features and stores it. A
// refused setting changes nothing. What is refused: a name that belongs to no
// feature, a feature without a value, what is unavailable, an option that the
// feature does not have, a number that does not convert whole or lies outside
// the limits, a text with more characters than allowed or with others than
// allowed, a value that is not safe in the feature's command
// (host/value_safety.h). Characters are UTF-8 code points.
Refusal applySetting(const Model& model, const Setting& setting);

// The same checks, and nothing stored.
Refusal checkSetting(const Model& model, const Setting& setting);

}  // namespace driver_feature

#endif  // HOST_SETTINGS_H_

// What a session has loaded.
#ifndef HOST_SESSION_MODEL_H_
#define HOST_SESSION_MODEL_H_

#include <string>

#include "host/description/description_index.h"
#include "host/session/feature_view.h"

namespace driver_feature::host {

// The loaded features, and what the description says about them.
struct Model {
  FeatureMap features;
  DescriptionIndex index;
  std::string file;               // The description's path, for messages.
  CoreFeatureSet* set = nullptr;  // Of the features. Belongs to the library.
  // Whether to accept values that can end the command they are written into.
  bool allowsControlCharacters = false;
  // How to allow them, as a part of the sentence that refuses one; empty if
  // that is impossible.
  std::string allowance = ", or run with --allow-control-characters to write it as it is";
};

}  // namespace driver_feature::host

#endif  // HOST_SESSION_MODEL_H_

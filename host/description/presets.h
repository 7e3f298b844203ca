// Named settings that a description offers, such as "Draft".
#ifndef HOST_DESCRIPTION_PRESETS_H_
#define HOST_DESCRIPTION_PRESETS_H_

#include <string>
#include <vector>

#include "host/description/rules.h"

namespace driver_feature::host {

struct Preset {
  std::string name;
  std::string text;      // For people, in the description's own language; may be empty.
  std::string settings;  // The text of a settings file (host/settings/settings_text.h).
  SourcePlace place = {};
  SourcePlace settingsPlace = {};  // Where that text begins.
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_PRESETS_H_

// What stands beside the features: rules, texts, presets and media sizes, in
// the description's own file under a common root, or in files beside it.
#ifndef HOST_DESCRIPTION_ADDITIONS_H_
#define HOST_DESCRIPTION_ADDITIONS_H_

#include <vector>

#include "host/base/result.h"
#include "host/description/document.h"
#include "host/description/media_sizes.h"
#include "host/description/presets.h"
#include "host/description/rules.h"
#include "host/description/texts.h"

namespace driver_feature::host {

struct Additions {
  Rules rules;
  std::vector<TextsOfLanguage> texts;  // In the order of the description.
  std::vector<Preset> presets;
  MediaSizes media;
  // Parts that could not be read, and were left out.
  Problems problems = {};
};

// Reads what the document has beside its features, and the files beside
// NAME.xml: NAME.rules.xml, NAME.LANGUAGE.po for each language, and the settings
// files NAME.presets/PRESET.settings. A part that cannot be read is left out and
// becomes one of the problems.
Additions readAdditions(const Document& document);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_ADDITIONS_H_

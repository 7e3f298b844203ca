// What a description has beside its features: rules, texts, presets, panels and media sizes, in
// the description's own file under a common root, or in files beside it.
#ifndef HOST_DESCRIPTION_ADDITIONS_H_
#define HOST_DESCRIPTION_ADDITIONS_H_

#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/description/document.h"
#include "host/description/media_sizes.h"
#include "host/description/panels.h"
#include "host/description/presets.h"
#include "host/description/rules.h"
#include "host/description/texts.h"

namespace driver_feature::host {

// The parts, each of which can be read without the others.
enum AdditionPart : unsigned {
  kRulesPart = 1,
  kTextsPart = 2,
  kPresetsPart = 4,
  kMediaPart = 8,
  kPanelsPart = 16,
  kAllParts = 31,
};

struct Additions {
  Rules rules;
  std::vector<TextsOfLanguage> texts;  // In the order of the description, then by file name.
  std::vector<Preset> presets;         // The same.
  std::vector<Panel> panels;           // In the order of the description.
  MediaSizes media;
  // What could not be read, and was left out. A rule is left out as a whole: with
  // a condition less it would forbid more.
  Problems problems = {};
};

// Reads what the document has beside its features, and the files beside it
// (beside_files.h). Of standard input, the document alone. A part that cannot be read is left out
// and becomes one of the problems. Places have lines, and also columns while the document has its
// text.
Additions readAdditions(const Document& document, unsigned parts = kAllParts);

// The languages that the document's texts and the files beside it are in, each
// once, without reading the texts.
std::vector<std::string> languagesOf(const Document& document);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_ADDITIONS_H_

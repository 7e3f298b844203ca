#include "programs/driver_feature/show/dump_text.h"

#include <algorithm>

#include "programs/driver_feature/shell/captured_output.h"
#include "programs/driver_feature/show/secrets.h"

namespace driver_feature::cli {

namespace {

// Masks the value in the listing's part about the feature:
//
//   "NAME" (TextEntry/enabled/visible)Text:VALUE (not in a group)
void maskValue(std::string& text, const std::string& name, const std::string& value) {
  const std::string begin = "\n\"" + name + "\" (TextEntry/";
  constexpr std::string_view kLabel = ")Text:";
  for (std::size_t at = 0; (at = text.find(begin, at)) != std::string::npos; ++at) {
    const std::size_t label = text.find(kLabel, at + begin.size());
    if (label == std::string::npos) return;
    const std::size_t place = label + kLabel.size();
    if (text.compare(place, value.size() + 2, value + " (") != 0) continue;
    text.replace(place, value.size(), host::kMask);
    return;
  }
}

}  // namespace

bool hasSecrets(const host::Model& model) {
  return std::ranges::any_of(model.features,
                             [](const auto& feature) { return isMasked(feature.second); });
}

host::Result<std::string> maskedDump(host::Session& session) {
  CapturedOutput captured;
  session.features().dumpFeatureListValues();
  std::string text;
  if (!captured.end(text)) {
    return fail(host::Problem::Kind::kNotWritten,
                "the listing cannot be kept; free some space for temporary files");
  }
  for (const auto& [name, feature] : session.model().features) {
    if (isMasked(feature)) maskValue(text, name, feature.currentText());
  }
  return text;
}

}  // namespace driver_feature::cli

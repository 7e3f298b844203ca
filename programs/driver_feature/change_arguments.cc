#include "programs/driver_feature/change_arguments.h"

namespace driver_feature::cli {

host::RuleConduct conductOf(const Arguments& arguments) {
  if (arguments.has("--resolve")) return host::RuleConduct::kMend;
  if (arguments.has("--ignore-rules")) return host::RuleConduct::kIgnore;
  return host::RuleConduct::kRefuse;
}

host::Changes changesOf(const Arguments& arguments) {
  host::Changes changes;
  changes.files = arguments.texts("--settings");
  changes.settings = arguments.texts("--option");
  const std::vector<std::string>& records = arguments.texts("--records");
  for (std::size_t i = 0; i + 1 < records.size(); i += 2) {
    changes.records.push_back({records[i], records[i + 1]});
  }
  changes.presets = arguments.texts("--preset");
  changes.savePreset = arguments.text("--save-preset");
  changes.saveFile = arguments.text("--save");
  changes.saveSecrets = arguments.has("--save-secrets");
  changes.rules = conductOf(arguments);
  changes.allowControlCharacters = arguments.has("--allow-control-characters");
  return changes;
}

host::SessionRequest sessionOf(const Arguments& arguments, const host::SessionRequest& general) {
  host::SessionRequest request = general;
  request.description = arguments.text("DESC");
  return request;
}

}  // namespace driver_feature::cli

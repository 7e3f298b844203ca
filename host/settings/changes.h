// Changes to a session that a user asks for.
#ifndef HOST_SETTINGS_CHANGES_H_
#define HOST_SETTINGS_CHANGES_H_

#include <memory>
#include <string>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/result.h"
#include "host/session/session.h"
#include "host/settings/records.h"
#include "host/settings/rule_keeping.h"

namespace driver_feature::host {

struct Changes {
  std::vector<std::string> settings;      // NAME=VALUE, made in this order; keys may replace names.
  std::vector<RecordsRequest> records;    // Made after the settings.
  std::vector<std::string> files = {};    // Settings files, set before these.
  std::vector<std::string> presets = {};  // Of the description, set before all else.
  std::string saveFile = {};              // Receives the settings afterwards; empty for none.
  std::string savePreset = {};            // The name of a preset to make of them; empty for none.
  bool allowControlCharacters = false;    // Even if they can end the command.
  bool saveSecrets = false;               // Save the values of encrypted features, too.
  // What becomes of values that the rules of the description forbid together.
  RuleConduct rules = RuleConduct::kRefuse;
};

// Makes the changes and releases the log lines that they and the load have
// caused. If any change is refused, the log lines are dropped and the others have
// been made; there is a problem for each refused one: for a line of a preset or a
// settings file, for a setting, for a member of a record, and for a preset that
// cannot be saved under its name; or for the values that the rules forbid. A
// routine that has thrown is a problem, too. Returns a line for each feature that
// was changed because of a rule.
Result<std::vector<std::string>> makeChanges(Session& session, const Changes& changes);

// The same with a keeper that was made before anything else, for what it says
// about the values afterwards. It does not make or refuse anything.
Result<> makeChangesUnjudged(Session& session, const Changes& changes, RuleKeeper& keeper);

// Opens the session and makes the changes; reports what was changed because of a
// rule.
Result<std::unique_ptr<Session>> openChanged(const SessionRequest& request, const Changes& changes);

// The settings file and the preset that the changes ask for.
std::vector<OutputText> outputsToSave(const Session& session, const Changes& changes);

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_CHANGES_H_

// What is wrong with the settings of a job, as a description judges them.
#ifndef PROGRAMS_PRINTER_SETTINGS_VERDICT_H_
#define PROGRAMS_PRINTER_SETTINGS_VERDICT_H_

#include <string>
#include <vector>

#include "host/session/session.h"
#include "host/settings/setting.h"

namespace driver_feature::printer {

struct SettingsVerdict {
  std::string problem;  // Why they cannot be made, whatever changes; empty if they can.
  // Rules forbid them together: what for people, of which features, and the changes
  // with which no rule holds.
  std::string conflict;
  std::vector<std::string> features;
  std::vector<host::Setting> changes;
};

// Makes the settings, one after the other, and judges them by the rules. The
// model is changed afterwards.
SettingsVerdict judge(const host::Session& session, const std::vector<host::Setting>& settings);

// As one text, and back.
std::string pack(const SettingsVerdict& verdict);
SettingsVerdict unpackVerdict(std::string text);

std::string packSettings(const std::vector<host::Setting>& settings);
std::vector<host::Setting> unpackSettings(std::string text);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_SETTINGS_VERDICT_H_

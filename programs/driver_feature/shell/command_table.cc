#include "programs/driver_feature/shell/command_table.h"

#include "host/base/nearest_name.h"
#include "host/base/text.h"
#include "programs/driver_feature/shell/option_commands.h"
#include "programs/driver_feature/shell/output_commands.h"
#include "programs/driver_feature/shell/record_commands.h"
#include "programs/driver_feature/shell/settings_commands.h"
#include "programs/driver_feature/shell/state_commands.h"
#include "programs/driver_feature/shell/value_commands.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kSetDetails =
    "A VALUE alone is checked against the description, as -o checks it. With a\n"
    "PROPERTY, the value goes to the library unchecked, through the operation of the\n"
    "property's type; only values that are not safe in the feature's command are\n"
    "refused, as -o refuses them.\n"
    "  set Copies 2\n"
    "  set Copies DefaultIntValue 2\n"
    "  set Duplex Sensitivity false\n";

constexpr const char* kResolveDetails =
    "The value is checked as \"set\" checks it. Where a rule of the description forbids\n"
    "it together with others, as few other features as possible change.\n";

constexpr const char* kGetDetails =
    "Without a PROPERTY, shows the current value of a feature. \"all\" lists every\n"
    "property that the library returns, such as the default, original and deferred\n"
    "values. Texts with blanks or control characters are shown as you can type them.\n";

constexpr const char* kOptionDetails =
    "Without a PROPERTY, shows all of them. A VALUE goes to the library unchecked.\n"
    "  option Duplex LongEdge PSCommand \"true\"\n";

constexpr const char* kEmitDetails =
    "Writes to standard output, or to a file, whole or not at all. --inst-opt lets a\n"
    "ticket use the names of installable options.\n";

constexpr const char* kSaveDetails =
    "Copies the current values of the named features, or of all, into their original\n"
    "values.\n";

constexpr const char* kLoadDetails =
    "The values are checked as \"set\" checks them. If one is refused, nothing changes.\n";

constexpr const char* kPresetDetails =
    "The values are checked as \"set\" checks them. If one is refused, nothing changes.\n"
    "Features that the preset does not name keep their values.\n";

constexpr const char* kRestoreDetails =
    "Copies the original values of the named features, or of all, back into their\n"
    "current values. Before the first save they are 0 and empty.\n";

constexpr const char* kRecordsDetails =
    "  list                   the records; * marks a selected one\n"
    "  add MEMBER=VALUE...    adds a record of checked values, sorted in\n"
    "  add-file FILE          adds the records of a JSON file\n"
    "  remove INDEX           removes a record, counted from 0\n"
    "  clear                  removes all records\n"
    "  sort                   sorts with the routine of the description\n"
    "  select INDEX           puts a record into the selection\n"
    "  deselect INDEX         takes it out again\n"
    "  load INDEX             puts a record's values into the template\n"
    "  has MEMBER=VALUE...    says whether a record has exactly these values\n";

constexpr const char* kConstrainDetails =
    "Makes the option unavailable for the constraint ID, a number of 0 or more. If it\n"
    "is selected, another available option is selected first. \"hide\" also hides the\n"
    "option.\n";

constexpr const char* kReleaseDetails =
    "Removes the constraint ID from the option. Once none is left, the option is as\n"
    "available and visible as it was before the first.\n";

constexpr const char* kLogDetails =
    "quiet: errors; usual: errors and misuse; all: every line. Without an argument,\n"
    "shows which is set.\n";

constexpr ShellCommand kShellCommands[] = {
    {"set", "NAME [PROPERTY] VALUE", "Sets a feature, or one property of a feature or group",
     kSetDetails, 2, 3, &runSet, &proposeSet},
    {"resolve", "NAME VALUE", "Sets a feature, and changes others where a rule requires it",
     kResolveDetails, 2, 2, &runResolve, &proposeSet},
    {"get", "NAME [PROPERTY|all]", "Shows a value, a property, or all properties", kGetDetails, 1,
     2, &runGet, &proposeGet},
    {"show", "[NAME]", "Shows all features and groups, or one", "", 0, 1, &runShow, &proposeShow},
    {"option", "NAME OPTION [PROPERTY [VALUE]]", "Shows or sets the properties of an option",
     kOptionDetails, 2, 4, &runOption, &proposeOption},
    {"emit", "ps|pjl|ticket [FILE] [--inst-opt]", "Writes printer-ready output", kEmitDetails, 1, 3,
     &runEmit, &proposeEmit},
    {"save", "[NAME...]", "Saves current values as original values", kSaveDetails, 0, kAnyNumber,
     &runSave, &proposeFeatures},
    {"restore", "[NAME...]", "Restores the saved values", kRestoreDetails, 0, kAnyNumber,
     &runRestore, &proposeFeatures},
    {"write", "FILE", "Writes all values and records to a settings file", "", 1, 1, &runWrite,
     &proposeFile},
    {"load", "FILE", "Loads values and records from a settings file", kLoadDetails, 1, 1, &runLoad,
     &proposeFile},
    {"preset", "NAME", "Applies a preset of the description", kPresetDetails, 1, 1, &runPreset,
     &proposePreset},
    {"presets", "", "Shows the presets of the description", "", 0, 0, &runPresets, nullptr},
    {"defaults", "", "Sets every feature to its default value", "", 0, 0, &runDefaults, nullptr},
    {"records", "GROUP [ACTION ...]", "Lists or changes the records of a dynamic group",
     kRecordsDetails, 1, kAnyNumber, &runRecords, &proposeRecords},
    {"constrain", "NAME OPTION ID [hide]", "Makes an option unavailable", kConstrainDetails, 3, 4,
     &runConstrain, &proposeConstrain},
    {"release", "NAME OPTION ID", "Makes an option available again", kReleaseDetails, 3, 3,
     &runRelease, &proposeRelease},
    {"log", "[quiet|usual|all]", "Chooses which log lines are shown", kLogDetails, 0, 1, &runLog,
     &proposeLog},
    {"dump", "", "Prints the library's whole model", "", 0, 0, &runDump, nullptr},
    {"help", "[COMMAND]", "Shows the commands, or one", "", 0, 1, &runHelp, &proposeHelp},
    {"quit", "", "Ends the shell; so does Ctrl-D", "", 0, 0, &runQuit, nullptr},
};

}  // namespace

std::span<const ShellCommand> shellCommands() {
  return kShellCommands;
}

host::Result<const ShellCommand*> findCommand(const std::string& name) {
  for (const ShellCommand& known : kShellCommands) {
    if (name == known.name) return &known;
  }
  const auto nearest = host::nearestName(name, commandNames());
  return host::refused(
      "there is no command \"" + name + "\"; " +
      (nearest ? "did you mean \"" + *nearest + "\"?" : "\"help\" lists the commands"));
}

std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  for (const ShellCommand& command : kShellCommands) names.emplace_back(command.name);
  return names;
}

}  // namespace driver_feature::cli

// The arguments that change a model before a command does its work.
#ifndef PROGRAMS_DRIVER_FEATURE_CHANGE_ARGUMENTS_H_
#define PROGRAMS_DRIVER_FEATURE_CHANGE_ARGUMENTS_H_

#include <array>

#include "host/settings/changes.h"
#include "programs/driver_feature/arguments.h"

namespace driver_feature::cli {

inline constexpr ArgumentRow kDescriptionRow = {"DESC", "FILE",
                                                "The feature description, an XML file", kRequired};

inline constexpr ArgumentRow kAllowanceRow = {
    "--allow-control-characters", "", "Accept values that can end the printer command around them"};

inline constexpr ArgumentRow kShowSecretsRow = {
    "--show-secrets", "", "Show values of features marked Encrypted instead of ****"};

inline constexpr ArgumentRow kResolveRow = {
    "--resolve", "",
    "Change other features, as few as possible, where a rule forbids values together"};

inline constexpr ArgumentRow kIgnoreRulesRow = {
    "--ignore-rules", "", "Accept values that a rule forbids together", kOptional, "--resolve"};

inline constexpr std::array kChangeRows = {
    ArgumentRow{"--preset", "PRESET",
                "Apply a preset of the description, before all other settings; may be repeated",
                kRepeats},
    ArgumentRow{"--settings", "FILE", "Load a settings file before any -o is set; may be repeated",
                kRepeats},
    ArgumentRow{"-o,--option", "NAME=VALUE", "Set a feature; may be repeated", kRepeats},
    ArgumentRow{"--records", "GROUP FILE",
                "Add the records of a JSON file to a dynamic group; may be repeated", kRepeats},
    kResolveRow,
    kIgnoreRulesRow,
    ArgumentRow{"--save", "FILE",
                "Write the values and records after the changes to a settings file"},
    ArgumentRow{"--save-preset", "PRESET",
                "Write what differs from the default values to a preset, a file beside the "
                "description"},
    ArgumentRow{"--save-secrets", "",
                "With --save: write the values of features marked Encrypted, too, into a file that "
                "only its owner can read"},
    kAllowanceRow};

// What to do about values that a rule forbids together.
host::RuleConduct conductOf(const Arguments& arguments);

// The changes that these rows ask for.
host::Changes changesOf(const Arguments& arguments);

// The session that the line asks for: the general options, and DESC.
host::SessionRequest sessionOf(const Arguments& arguments, const host::SessionRequest& general);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_CHANGE_ARGUMENTS_H_

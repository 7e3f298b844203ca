#include "host/command_arguments.h"

#include <vector>

#include <CLI/CLI.hpp>

namespace driver_feature {

CLI::App* addCommand(CLI::App& program, const std::string& name, const std::string& summary,
                     const std::string& footer) {
  CLI::App* command = program.add_subcommand(name, summary);
  command->footer(footer);
  command->fallthrough();  // The general options may stand behind the command.
  return command;
}

void addDescription(CLI::App& command, std::string& file) {
  command.add_option("DESC", file, "The feature description, an XML file")
      ->required()
      ->type_name("FILE");
}

void addChanges(CLI::App& command, Changes& changes) {
  command
      .add_option("--settings", changes.files,
                  "Set what a settings file holds, before any -o; may be repeated")
      ->type_name("FILE")
      ->allow_extra_args(false);
  command.add_option("-o,--option", changes.settings, "Set a feature; may be repeated")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  command
      .add_option_function<std::vector<std::string>>(
          "--records",
          [&changes](const std::vector<std::string>& words) {
            for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
              changes.records.push_back({words[i], words[i + 1]});
            }
          },
          "Add the records of a JSON file to a dynamic group; may be repeated")
      ->type_name("GROUP FILE")
      ->type_size(2)
      ->allow_extra_args(false);
  command
      .add_option("--save", changes.saveFile,
                  "Write the values and records after the changes to a settings file")
      ->type_name("FILE");
  addAllowance(command, changes.allowControlCharacters);
}

void addAllowance(CLI::App& command, bool& allow) {
  command.add_flag("--allow-control-characters", allow,
                   "Take values that can end the printer command around them");
}

}  // namespace driver_feature

// The help of the program and of each command: it has examples that work, and
// lists the exit statuses.

#include "help/commands.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <sstream>

namespace fs = std::filesystem;

HelpTest::HelpTest() {
  const fs::path descriptions = fs::path(SOURCE_FOLDER) / "descriptions";
  fs::copy_file(descriptions / "office_laser.xml", folder() / "office.xml");
  fs::copy_file(descriptions / "page_exceptions.json", folder() / "page_exceptions.json");
  fs::create_symlink(OFFICE_ROUTINES, folder() / "liboffice_routines.so");
  write("printer.ppd",
        "*PPD-Adobe: \"4.3\"\n*OpenUI *Duplex: PickOne\n*Duplex Off: \"\"\n*CloseUI: *Duplex\n");
  fs::create_directory(folder() / "ppds");
  fs::copy_file(folder() / "printer.ppd", folder() / "ppds" / "printer.ppd");
  write("my.conf", "Copies=2\n");
  fs::create_directory(folder() / "cases");
  write("cases/driver.txt", "Description=../office.xml\n");
  write("cases/two.conf", "Copies=2\n");
  write("draft.conf", "EconoMode=On\n");
  write("final.conf", "Copies=3\n");
  fs::create_directory(folder() / "bin");
  // The shells ask for completion without any other argument before.
  write("bin/driver-feature",
        "#!/bin/sh\n[ \"$1\" = __complete ] || set -- --callbacks '" OFFICE_ROUTINES
        "' \"$@\"\nexec '" DRIVER_FEATURE_PROGRAM "' \"$@\"\n");
  fs::permissions(folder() / "bin/driver-feature", fs::perms::owner_all);
}

RunResult HelpTest::runShell(const std::string& line) const {
  return runIn(folder(), "/usr/bin/env",
               {"bash", "-c",
                "PATH=\"$PWD/bin:$PATH\" LD_LIBRARY_PATH=\"$PWD:$LD_LIBRARY_PATH\"\n"
                "export PATH LD_LIBRARY_PATH\n" +
                    line});
}

std::string HelpTest::help(const std::string& command) const {
  std::vector<std::string> arguments = {"--help"};
  if (!command.empty()) arguments.insert(arguments.begin(), command);
  return run(arguments).output;
}

std::vector<std::string> HelpTest::commands() const {
  std::vector<std::string> commands;
  bool listed = false;
  for (const std::string& line : linesOf(help(""))) {
    if (line.empty()) listed = false;
    if (listed && line.size() > 2 && line[2] != ' ') {
      commands.push_back(line.substr(2, line.find(' ', 2) - 2));
    }
    if (line == "Subcommands:") listed = true;
  }
  return commands;
}

std::set<std::string> optionsListedIn(const std::string& text) {
  // A list of options begins a line and may go on after commas.
  static const std::regex kLine(" +(-[-a-zA-Z0-9]+(?:, ?-[-a-zA-Z0-9]+)*)(?: .*)?");
  static const std::regex kOption("-[-a-zA-Z0-9]+");
  std::set<std::string> options;
  for (const std::string& line : linesOf(text)) {
    std::smatch match;
    if (!std::regex_match(line, match, kLine)) continue;
    const std::string list = match[1];
    for (std::sregex_iterator option(list.begin(), list.end(), kOption), end; option != end;
         ++option) {
      options.insert(option->str());
    }
  }
  return options;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream input(text);
  for (std::string line; std::getline(input, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> examplesOf(const std::string& help) {
  std::vector<std::string> examples;
  bool found = false;
  for (const std::string& line : linesOf(help)) {
    if (found && !line.starts_with("  ")) found = false;
    if (found) examples.push_back(line.substr(2));
    if (line == "Examples:") found = true;
  }
  return examples;
}

namespace {

TEST_F(HelpTest, Help_EveryCommand_HasExamplesOfItAndTheExitStatus) {
  ASSERT_THAT(commands(), testing::IsSupersetOf({"show", "emit", "dump", "try", "diff"}));
  for (const std::string& command : commands()) {
    const std::string text = help(command);
    EXPECT_THAT(text, testing::HasSubstr("\nExit status: 0 ")) << command;
    ASSERT_FALSE(examplesOf(text).empty()) << command;
    for (const std::string& example : examplesOf(text)) {
      EXPECT_THAT(example, testing::HasSubstr("driver-feature " + command + " "));
    }
  }
  EXPECT_FALSE(examplesOf(help("")).empty());
}

// 0, or 1 for what a comparison or a check has found; 2 is wrong usage.
TEST_F(HelpTest, Help_EveryExample_IsValidUsage) {
  std::vector<std::string> names = commands();
  names.emplace_back();
  for (const std::string& command : names) {
    // Serves until it is ended, in a browser that is a person's. The test of the page
    // has the same options.
    if (command == "preview") continue;
    for (const std::string& example : examplesOf(help(command))) {
      const RunResult result = runShell("set -o pipefail; { " + example + "; } </dev/null");
      const bool compares = command == "diff" || command == "check" || command == "test";
      EXPECT_LE(result.status, compares ? 1 : 0) << example << "\n" << result.errors;
    }
  }
}

TEST_F(HelpTest, RunShell_WrongUsage_EndsWithTwo) {
  EXPECT_EQ(runShell("set -o pipefail; driver-feature show office.xml -o None=1 | cat").status, 2);
  EXPECT_EQ(runShell("driver-feature show office.xml --frob").status, 2);
}

}  // namespace

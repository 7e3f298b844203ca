// The manual page as a reader sees it.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "help/commands.h"

namespace {

namespace fs = std::filesystem;

class ManualPageTest : public HelpTest {
 protected:
  // The page as plain text.
  std::string page() const {
    const RunResult result = runShell(
        "MANWIDTH=100 LC_ALL=C man -P cat --nj --nh -E ascii -l '" MANUAL_PAGE "' | col -bx");
    EXPECT_EQ(result.errors, "");
    return result.output;
  }

  // The lines after a heading up to the next one of the same depth or higher.
  std::string sectionOf(const std::string& heading) const {
    std::string section;
    const std::size_t depth = heading.find_first_not_of(' ');
    bool found = false;
    for (const std::string& line : linesOf(page())) {
      const std::size_t indent = line.find_first_not_of(' ');
      if (found && indent != std::string::npos && indent <= depth) break;
      if (found) section += line + "\n";
      if (line == heading) found = true;
    }
    return section;
  }
};

TEST_F(ManualPageTest, Format_Page_HasNoWarning) {
  const RunResult result =
      runShell("LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z '" MANUAL_PAGE "' >/dev/null");
  EXPECT_EQ(result, success(""));
}

TEST_F(ManualPageTest, Format_UnknownRequest_Warns) {
  write("wrong.1", ".TH A 1\n.SH NAME\na \\- b\n.XYZ\n");
  const RunResult result =
      runShell("LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z ./wrong.1 >/dev/null");
  EXPECT_THAT(result.errors, testing::HasSubstr("macro 'XYZ' not defined"));
}

TEST_F(ManualPageTest, Commands_EachHasASectionWithItsOptions) {
  const std::string general = sectionOf("GENERAL OPTIONS");
  EXPECT_EQ(optionsListedIn(general), optionsListedIn(help("")));
  EXPECT_FALSE(optionsListedIn(general).empty());
  std::vector<std::string> sections;
  for (const std::string& line : linesOf(sectionOf("COMMANDS"))) {
    if (line.starts_with("   driver-feature ")) sections.push_back(line.substr(18));
  }
  EXPECT_EQ(sections, commands());
  for (const std::string& command : commands()) {
    std::set<std::string> options = optionsListedIn(help(command));
    options.erase("-h");
    options.erase("--help");
    EXPECT_EQ(optionsListedIn(sectionOf("   driver-feature " + command)), options) << command;
  }
}

TEST_F(ManualPageTest, Examples_EachOfTheHelp_IsInThePage) {
  const std::string text = page();
  std::vector<std::string> names = commands();
  names.emplace_back();
  for (const std::string& command : names) {
    for (const std::string& example : examplesOf(help(command))) {
      EXPECT_NE(text.find("           " + example + "\n"), std::string::npos) << example;
    }
  }
}

// A variable that the program reads is of no use unless users know it.
TEST_F(ManualPageTest, Environment_EveryVariableThatTheProgramReads_IsNamed) {
  const std::string section = sectionOf("ENVIRONMENT");
  const std::regex kUse("(?:getenv|environment|absolutePathIn)\\(\"([A-Z_]+)\"\\)");
  std::set<std::string> variables;
  for (const char* folder : {"host", "programs/driver_feature"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / folder)) {
      const std::string name = entry.path().filename().string();
      if (entry.path().extension() != ".cc" || name.ends_with("_test.cc")) continue;
      std::ifstream file(entry.path());
      const std::string text{std::istreambuf_iterator<char>(file),
                             std::istreambuf_iterator<char>()};
      for (std::sregex_iterator use(text.begin(), text.end(), kUse), end; use != end; ++use) {
        variables.insert((*use)[1]);
      }
    }
  }
  EXPECT_TRUE(variables.contains("NO_COLOR"));
  for (const std::string& variable : variables) {
    EXPECT_THAT(section, testing::HasSubstr("       " + variable)) << variable;
  }
}

}  // namespace

// Compares what the program writes for the shipped descriptions with the files
// of this folder, byte for byte.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "host/program_runner.h"

namespace {

std::string readGolden(const std::string& name) {
  std::ifstream file(std::string(GOLDEN_FOLDER) + "/" + name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// One argument in each line.
std::vector<std::string> readArguments(const std::string& name) {
  std::ifstream file(std::string(GOLDEN_FOLDER) + "/" + name);
  EXPECT_TRUE(file.is_open()) << name;
  std::vector<std::string> arguments;
  for (std::string line; std::getline(file, line);) arguments.push_back(line);
  return arguments;
}

// The arguments after the program's name. The changed office laser has
// records, too, and the dump takes no arguments of tickets.
std::vector<std::string> commandLine(const std::string& description, const std::string& settings,
                                     const std::string& form) {
  const std::string folder = std::string(DESCRIPTIONS_FOLDER) + "/";
  std::vector<std::string> line = {"--callbacks", ROUTINES_LIBRARY};
  const bool isDump = form == "dump";
  line.insert(line.end(), {isDump ? "dump" : "emit", folder + description + ".xml"});
  if (isDump) line.emplace_back("--show-secrets");
  if (!isDump) line.insert(line.end(), {"--to", form});
  if (settings == "default") return line;
  if (!isDump) line.emplace_back("--inst-opt");
  const auto arguments = readArguments(description + "." + settings + ".arguments");
  EXPECT_GT(arguments.size(), 10U);
  line.insert(line.end(), arguments.begin(), arguments.end());
  if (description == "office_laser") {
    line.insert(line.end(), {"--records", "PageExceptions", folder + "page_exceptions.json"});
  }
  return line;
}

// Description, settings, form of output.
using GoldenCase = std::tuple<std::string, std::string, std::string>;

class GoldenTest : public ProgramTest, public testing::WithParamInterface<GoldenCase> {};
class SavedSettingsTest : public GoldenTest {};

TEST_P(GoldenTest, Emit_ShippedDescription_WritesTheGoldenFile) {
  const auto& [description, settings, form] = GetParam();
  const std::string golden = readGolden(description + "." + settings + "." + form);
  ASSERT_GT(golden.size(), 300U);
  EXPECT_EQ(run(commandLine(description, settings, form)), success(golden));
}

// The lines of a settings file are sorted by name, so that most of them are
// in another order than the arguments.
TEST_P(SavedSettingsTest, Emit_SavedSettings_WriteTheGoldenFileAgain) {
  const auto& [description, settings, form] = GetParam();
  std::vector<std::string> saving = commandLine(description, settings, form);
  saving.insert(saving.end(), {"--save", "saved.conf", "--save-secrets"});
  const std::string golden = readGolden(description + "." + settings + "." + form);
  ASSERT_EQ(run(saving), success(golden));
  std::vector<std::string> loading = commandLine(description, "default", form);
  if (form != "dump") loading.emplace_back("--inst-opt");
  loading.insert(loading.end(), {"--settings", "saved.conf"});
  EXPECT_EQ(run(loading), success(golden));
}

std::string nameOf(const testing::TestParamInfo<GoldenCase>& row) {
  return std::get<0>(row.param) + "_" + std::get<1>(row.param) + "_" + std::get<2>(row.param);
}

INSTANTIATE_TEST_SUITE_P(Shipped, GoldenTest,
                         testing::Combine(testing::Values("office_laser", "label_printer"),
                                          testing::Values("default", "changed"),
                                          testing::Values("ps", "pjl", "ticket", "dump")),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(Shipped, SavedSettingsTest,
                         testing::Combine(testing::Values("office_laser", "label_printer"),
                                          testing::Values("changed"),
                                          testing::Values("ps", "pjl", "ticket", "dump")),
                         nameOf);

}  // namespace

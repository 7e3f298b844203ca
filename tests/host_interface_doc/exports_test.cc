// The page lists what the library exports and shows each name at work.

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host_interface_doc/markdown.h"

namespace driver_feature::testing {
namespace {

using ::testing::SizeIs;

using Names = std::set<std::string>;

// The last word of each line; what comes before it is the kind of symbol.
Names namesIn(const std::string& list) {
  Names names;
  for (const std::string& line : linesOf(list)) {
    std::istringstream words(line);
    std::string last;
    for (std::string word; words >> word;) last = word;
    if (!last.empty() && !line.starts_with('#')) names.insert(last);
  }
  return names;
}

std::vector<Names> committedLists() {
  std::vector<Names> lists;
  for (const auto& entry : std::filesystem::directory_iterator(EXPORTS_FOLDER)) {
    const std::string file = entry.path().filename();
    if (file.starts_with("exports") && file.ends_with(".txt")) {
      lists.push_back(namesIn(readFile(entry.path())));
    }
  }
  return lists;
}

Names listedNames() {
  Names names;
  for (const Row& row : firstTableOf(sectionOf(readPage("host-interface.md"), "Exported names"))) {
    EXPECT_GE(row.size(), 2U);
    EXPECT_NE(row.at(1), "") << row.at(0);
    const bool isCode = row.at(0).size() > 2 && row.at(0).front() == '`';
    EXPECT_TRUE(isCode) << row.at(0);
    if (isCode) names.insert(row.at(0).substr(1, row.at(0).size() - 2));
  }
  return names;
}

TEST(HostInterfaceExports, Table_EveryArchitecture_ListsTheCommittedNames) {
  const std::vector<Names> lists = committedLists();
  ASSERT_FALSE(lists.empty());
  for (const Names& list : lists) {
    EXPECT_THAT(list, SizeIs(21));
    EXPECT_EQ(listedNames(), list);
  }
}

// Looked up by its name, or by the text of the record with the type of the header.
TEST(HostInterfaceExports, Examples_EveryName_IsUsed) {
  const std::string program = readFile(EXAMPLES_SOURCE);
  for (const std::string& name : listedNames()) {
    const bool isUsed = program.find('"' + name + '"') != std::string::npos ||
                        program.find("decltype(" + name + ')') != std::string::npos;
    EXPECT_TRUE(isUsed) << name;
  }
}

}  // namespace
}  // namespace driver_feature::testing

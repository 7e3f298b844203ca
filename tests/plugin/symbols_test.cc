// The names that the library gives to hosts and takes from the platform.

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/loaded_library.h"

namespace driver_feature::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::Not;
using ::testing::StartsWith;

// The lines of a committed list.
std::vector<std::string> readList(const char* path) {
  std::ifstream file(path);
  EXPECT_TRUE(file.is_open()) << path;
  std::vector<std::string> names;
  for (std::string line; std::getline(file, line);) names.push_back(line);
  EXPECT_FALSE(names.empty()) << path;
  return names;
}

// What the program nm prints about the library.
std::string runNm(const std::string& options) {
  const std::string command = std::string(NM_PROGRAM) + ' ' + options + " " DRIVER_FEATURE_LIBRARY;
  std::FILE* pipe = popen(command.c_str(), "r");
  EXPECT_NE(pipe, nullptr) << command;
  if (pipe == nullptr) return "";
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    output.append(buffer.data(), count);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

// The symbols that nm lists with these options: the last word of each line,
// sorted.
std::vector<std::string> symbols(const std::string& options) {
  std::istringstream lines(runNm(options));
  std::vector<std::string> names;
  for (std::string line; std::getline(lines, line);) {
    names.push_back(line.substr(line.rfind(' ') + 1));
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The kind of an exported symbol, STT_OBJECT or STT_FUNC, or -1.
int symbolType(void* address, std::size_t* size = nullptr) {
  Dl_info info{};
  void* entry = nullptr;
  if (dladdr1(address, &info, &entry, RTLD_DL_SYMENT) == 0 || entry == nullptr) return -1;
  const auto* symbol = static_cast<const ElfW(Sym)*>(entry);
  if (size != nullptr) *size = symbol->st_size;
  return ELF32_ST_TYPE(symbol->st_info);
}

bool isRecord(const std::string& name) {
  return name.starts_with("_Kirvo");
}

using SymbolsTest = LoadedLibraryTest;

TEST_F(SymbolsTest, Records_EachOne_PointsToItsText) {
  EXPECT_EQ(library_.record("_KirvoSOVersion"), "v1.0");
  EXPECT_EQ(library_.record("_KirvoSODisplayName"), "Driver Feature Library");
  EXPECT_EQ(library_.record("_KirvoNDTagHandlerFunction"), "FeatureXMLTagHandler");
}

TEST_F(SymbolsTest, Exports_EachListed_IsFoundAndOfItsKind) {
  for (const std::string& name : readList(EXPORTS_LIST)) {
    SCOPED_TRACE(name);
    void* address = library_.find(name);
    ASSERT_NE(address, nullptr);
    std::size_t size = 0;
    EXPECT_EQ(symbolType(address, &size), isRecord(name) ? STT_OBJECT : STT_FUNC);
    if (isRecord(name)) {
      EXPECT_EQ(size, sizeof(const char*));
    }
  }
}

TEST_F(SymbolsTest, Exports_WholeLibrary_AreTheListedAndNoOthers) {
  const std::vector<std::string> expected = readList(EXPORTS_LIST);
  EXPECT_THAT(symbols("-D --defined-only"), ElementsAreArray(expected));
}

TEST_F(SymbolsTest, Imports_EachPlatformName_IsLeftToThePlatform) {
  const std::vector<std::string> undefined = symbols("-D --undefined-only");
  // Local symbols are listed as well, unless the library has been stripped.
  const std::vector<std::string> defined = symbols("--defined-only");
  for (const std::string& name : readList(IMPORTS_LIST)) {
    SCOPED_TRACE(name);
    EXPECT_THAT(undefined, Contains(name));
    EXPECT_THAT(defined, Not(Contains(name)));
  }
}

TEST_F(SymbolsTest, Imports_OfTheXMLLibrary_AreTheConversionAlone) {
  for (const std::string& name : symbols("-D --undefined-only")) {
    EXPECT_THAT(name, Not(StartsWith("xml")));
  }
}

}  // namespace
}  // namespace driver_feature::testing

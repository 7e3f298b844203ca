// The names that the library gives to hosts and takes from the platform.

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "abi/committed_list.h"
#include "abi/sanitizers.h"
#include "plugin/loaded_library.h"

namespace driver_feature::testing {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::UnorderedElementsAreArray;

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

struct NmLine {
  std::string kind;     // nm's letter.
  std::string name;     // Without its version.
  std::string version;  // Empty when it has none.
};

// The symbols that nm lists with these options.
std::vector<NmLine> symbols(const std::string& options) {
  std::istringstream lines(runNm(options));
  std::vector<NmLine> found;
  for (std::string line; std::getline(lines, line);) {
    NmLine symbol;
    const std::size_t start = line.rfind(' ') + 1;
    const std::size_t at = std::min(line.find('@', start), line.size());
    symbol.kind = line.substr(start - 2, 1);
    symbol.name = line.substr(start, at - start);
    symbol.version = line.substr(std::min(line.find_first_not_of('@', at), line.size()));
    found.push_back(symbol);
  }
  EXPECT_FALSE(found.empty()) << options;
  return found;
}

std::vector<std::string> names(const std::string& options) {
  std::vector<std::string> found;
  for (const NmLine& symbol : symbols(options)) found.push_back(symbol.name);
  return found;
}

// A name that the C or C++ run-time system provides.
bool isOfTheRunTime(const NmLine& symbol) {
  for (const char* prefix : {"GLIBC_", "GLIBCXX_", "CXXABI_", "GCC_"}) {
    if (symbol.version.starts_with(prefix)) return true;
  }
  // Hooks of the start-up code, which may be missing.
  constexpr const char* kHooks[] = {"__gmon_start__", "_ITM_registerTMCloneTable",
                                    "_ITM_deregisterTMCloneTable"};
  return symbol.kind == "w" &&
         std::find(std::begin(kHooks), std::end(kHooks), symbol.name) != std::end(kHooks);
}

// A line of the list of exports: nm's letter of the kind, and the name.
struct Export {
  char kind;  // 'T' for a function, 'D' for a record.
  std::string name;
};

std::vector<Export> listedExports() {
  std::vector<Export> exports;
  for (const std::string& line : readList(EXPORTS_LIST)) {
    exports.push_back({line.front(), line.substr(2)});
  }
  return exports;
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

using SymbolsTest = LoadedLibraryTest;

TEST_F(SymbolsTest, Records_EachOne_PointsToItsText) {
  EXPECT_EQ(library_.record("_KirvoSOVersion"), "v1.0");
  EXPECT_EQ(library_.record("_KirvoSODisplayName"), "Driver Feature Library");
  EXPECT_EQ(library_.record("_KirvoNDTagHandlerFunction"), "FeatureXMLTagHandler");
}

TEST_F(SymbolsTest, Exports_EachListed_IsFoundAndOfItsKind) {
  // The checks at run time of this build make room around each object.
  constexpr std::size_t kRoom = kSanitized ? 3 * sizeof(const char*) : 0;
  for (const auto& [kind, name] : listedExports()) {
    SCOPED_TRACE(name);
    void* address = library_.find(name);
    ASSERT_NE(address, nullptr);
    std::size_t size = 0;
    EXPECT_EQ(symbolType(address, &size), kind == 'D' ? STT_OBJECT : STT_FUNC);
    if (kind == 'D') {
      EXPECT_GE(size, sizeof(const char*));
      EXPECT_LE(size, sizeof(const char*) + kRoom);
    }
  }
}

TEST_F(SymbolsTest, Exports_WholeLibrary_AreTheListedAndNoOthers) {
  std::vector<std::string> exports;
  for (const NmLine& symbol : symbols("-D --defined-only")) {
    exports.push_back(symbol.kind + ' ' + symbol.name);
  }
  EXPECT_THAT(exports, UnorderedElementsAreArray(readList(EXPORTS_LIST)));
}

TEST_F(SymbolsTest, Exports_NoName_BearsAVersion) {
  for (const NmLine& symbol : symbols("-D --defined-only")) {
    EXPECT_EQ(symbol.version, "") << symbol.name;
  }
}

// A name outside of the list would leave a host's process without it, and a
// listed one that is not used would be a promise that nobody keeps.
TEST_F(SymbolsTest, Imports_WholeLibrary_AreThePlatformsAndTheRunTimes) {
  if (kSanitized) GTEST_SKIP() << kWhySkipped;
  std::vector<std::string> imports;
  for (const NmLine& symbol : symbols("-D --undefined-only")) {
    if (!isOfTheRunTime(symbol)) imports.push_back(symbol.name);
  }
  EXPECT_THAT(imports, UnorderedElementsAreArray(readList(IMPORTS_LIST)));
}

TEST_F(SymbolsTest, Imports_EachPlatformName_IsLeftToThePlatform) {
  const std::vector<std::string> undefined = names("-D --undefined-only");
  // Local symbols are listed as well, unless the library has been stripped.
  const std::vector<std::string> defined = names("--defined-only");
  for (const std::string& name : readList(IMPORTS_LIST)) {
    SCOPED_TRACE(name);
    EXPECT_THAT(undefined, Contains(name));
    EXPECT_THAT(defined, Not(Contains(name)));
  }
}

}  // namespace
}  // namespace driver_feature::testing

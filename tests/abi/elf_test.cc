// The file of the built library as the loader of a host process sees it.

#include "abi/elf_file.h"

#include <elf.h>

#include <algorithm>

#include <gmock/gmock.h>

#include "abi/committed_list.h"
#include "abi/sanitizers.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

// All flags under a tag in one value.
ElfFile::Address flags(const ElfFile& file, long tag) {
  ElfFile::Address all = 0;
  for (const ElfFile::Address value : file.dynamicValues(tag)) all |= value;
  return all;
}

class ElfTest : public ::testing::Test {
 protected:
  ElfFile file_{DRIVER_FEATURE_LIBRARY};
};

// The name that a host was linked with stays the same: there is one binary
// interface, and its number is in the record.
TEST_F(ElfTest, Soname_HasNoNumber) {
  EXPECT_THAT(file_.dynamicTexts(DT_SONAME), ElementsAre("libDriverFeature.so"));
}

TEST_F(ElfTest, NeededLibraries_AreTheListedAndNoOthers) {
  if (kSanitized) GTEST_SKIP() << kWhySkipped;
  EXPECT_THAT(file_.dynamicTexts(DT_NEEDED), UnorderedElementsAreArray(readList(NEEDED_LIST)));
}

// Code that had to be written to could not be shared between processes, and
// hardened systems refuse to load it.
TEST_F(ElfTest, Code_IsNeverWrittenTo) {
  EXPECT_THAT(file_.dynamicValues(DT_TEXTREL), IsEmpty());
  EXPECT_EQ(flags(file_, DT_FLAGS) & DF_TEXTREL, 0U);
  const auto loaded = file_.segments(PT_LOAD);
  ASSERT_FALSE(loaded.empty());
  for (const auto& segment : loaded) {
    EXPECT_NE(segment.p_flags & (PF_W | PF_X), static_cast<unsigned>(PF_W | PF_X));
  }
}

// Without this segment the loader would make the whole process's stack
// executable.
TEST_F(ElfTest, Stack_IsNotExecutable) {
  const auto stacks = file_.segments(PT_GNU_STACK);
  ASSERT_EQ(stacks.size(), 1U);
  EXPECT_EQ(stacks[0].p_flags & PF_X, 0U);
}

// Virtual tables and the addresses of the platform's functions are read-only
// once the library has been loaded.
TEST_F(ElfTest, Relocations_AreAllDoneAtLoadAndThenProtected) {
  EXPECT_EQ(file_.segments(PT_GNU_RELRO).size(), 1U);
  EXPECT_NE(flags(file_, DT_FLAGS) & DF_BIND_NOW, 0U);
  EXPECT_NE(flags(file_, DT_FLAGS_1) & DF_1_NOW, 0U);
}

// A host may put its own functions in place of the platform's.
TEST_F(ElfTest, Names_AreLookedUpInTheProcessFirst) {
  EXPECT_THAT(file_.dynamicValues(DT_SYMBOLIC), IsEmpty());
  EXPECT_EQ(flags(file_, DT_FLAGS) & DF_SYMBOLIC, 0U);
}

TEST_F(ElfTest, Symbols_ButForTheExports_AreLocal) {
  std::vector<std::string> exports;
  for (const std::string& line : readList(EXPORTS_LIST)) exports.push_back(line.substr(2));
  std::vector<std::string> visible;
  std::size_t ownClasses = 0;
  for (const ElfFile::Symbol& symbol : file_.symbols()) {
    if (!symbol.defined) continue;
    if (!symbol.local) visible.push_back(symbol.name);
    if (symbol.local && symbol.name.find("13DriverFeature") != std::string::npos) ++ownClasses;
  }
  EXPECT_THAT(visible, UnorderedElementsAreArray(exports));
  EXPECT_GT(ownClasses, 26U) << "the library has been stripped";
}

}  // namespace
}  // namespace driver_feature::testing

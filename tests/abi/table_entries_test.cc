// The virtual tables of the built library: how many slots each has, and which
// function is in each. The tables are read from the loaded library, the
// names from the symbol table of its file.

#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "abi/elf_file.h"
#include "abi/sanitizers.h"
#include "plugin/loaded_library.h"

namespace driver_feature::testing {
namespace {

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

// A table starts with the offset to the whole object and the type's record;
// slot 0 is the third word.
constexpr std::size_t kWordsBeforeSlots = 2;

struct TableRow {
  const char* symbol;
  std::vector<std::string> slots;
};

const TableRow kTables[] = {
    {"_ZTV19DriverFeatureOption",
     {
         "DriverFeatureOption::getOptionProperty(string const&, string&)",        // 0
         "DriverFeatureOption::getOptionProperty(string const&, bool*)",          // 1
         "DriverFeatureOption::setOptionProperty(string const&, string const&)",  // 2
         "DriverFeatureOption::setOptionProperty(string const&, bool)",           // 3
         "DriverFeatureOption::isConstraintSetEmpty()",                           // 4
         "DriverFeatureOption::addConstraint(long const&)",                       // 5
         "DriverFeatureOption::removeConstraint(long const&)",                    // 6
     }},
    {"_ZTV13DriverFeature",
     {
         "DriverFeature::setFeatureProperty(string const&, string const&)",  // 0
         "DriverFeature::setFeatureProperty(string const&, int)",            // 1
         "DriverFeature::setFeatureProperty(string const&, float)",          // 2
         "DriverFeature::setFeatureProperty(string const&, bool)",           // 3
         "DriverFeature::getFeatureProperty(string const&, string&)",        // 4
         "DriverFeature::getFeatureProperty(string const&, int*)",           // 5
         "DriverFeature::getFeatureProperty(string const&, bool*)",          // 6
         "DriverFeature::getFeatureProperty(string const&, float*)",         // 7
         "DriverFeature::getFeatureType()",                                  // 8
         "DriverFeature::fetchNumberOfOptions()",                            // 9
         "DriverFeature::fetchOptionIndexByName(string const&)",             // 10
         "DriverFeature::fetchCurrentOption()",                              // 11
         "DriverFeature::fetchOptionByName(string const&, string const&)",   // 12
         "DriverFeature::fetchOptionByName(string)",                         // 13
         "DriverFeature::fetchOptionByIndex(int)",                           // 14
         "DriverFeature::getFeatureOptionCount()",                           // 15
         "DriverFeature::applyOptionConstraint(string const&, long, bool)",  // 16
         "DriverFeature::setFeaturePropertyWithConstraintControl(string const&, "
         "string const&, bool)",  // 17
         "DriverFeature::setFeaturePropertyWithConstraintControl(string const&, "
         "int, bool)",  // 18
         "DriverFeature::setFeaturePropertyWithConstraintControl(string const&, "
         "float, bool)",  // 19
         "DriverFeature::setFeaturePropertyWithConstraintControl(string const&, "
         "bool, bool)",                                                         // 20
         "DriverFeature::isConstraintSetEmpty()",                               // 21
         "DriverFeature::addConstraint(long const&)",                           // 22
         "DriverFeature::removeConstraint(long const&)",                        // 23
         "DriverFeature::getConstraintSet()",                                   // 24
         "DriverFeature::fetchOptionIndexByName(string const&, string const&)"  // 25
     }},
    {"_ZTV24DriverFeatureStaticGroup",
     {
         "DriverFeatureStaticGroup::setFeatureProperty(string const&, string const&)",  // 0
         "DriverFeatureStaticGroup::setFeatureProperty(string const&, int)",            // 1
         "DriverFeatureStaticGroup::setFeatureProperty(string const&, float)",          // 2
         "DriverFeatureStaticGroup::setFeatureProperty(string const&, bool)",           // 3
         "DriverFeatureStaticGroup::getFeatureProperty(string const&, string&)",        // 4
         "DriverFeatureStaticGroup::getFeatureProperty(string const&, int*)",           // 5
         "DriverFeatureStaticGroup::getFeatureProperty(string const&, bool*)",          // 6
         "DriverFeatureStaticGroup::getFeatureProperty(string const&, float*)",         // 7
         "DriverFeatureStaticGroup::getFeatureType()",                                  // 8
         "CoreFeature::fetchNumberOfOptions()",                                         // 9
         "CoreFeature::fetchOptionIndexByName(string const&)",                          // 10
         "CoreFeature::fetchCurrentOption()",                                           // 11
         "CoreFeature::fetchOptionByName(string const&, string const&)",                // 12
         "CoreFeature::fetchOptionByName(string)",                                      // 13
         "CoreFeature::fetchOptionByIndex(int)",                                        // 14
         "DriverFeatureStaticGroup::fetchNumberOfFeaturesInGroup()",                    // 15
         "DriverFeatureStaticGroup::fetchFeatureInGroupByIndex(unsigned int)",          // 16
     }},
    {"_ZTV25DriverFeatureDynamicGroup",
     {
         "DriverFeatureDynamicGroup::setFeatureProperty(string const&, string const&)",  // 0
         "DriverFeatureDynamicGroup::setFeatureProperty(string const&, int)",            // 1
         "DriverFeatureDynamicGroup::setFeatureProperty(string const&, float)",          // 2
         "DriverFeatureDynamicGroup::setFeatureProperty(string const&, bool)",           // 3
         "DriverFeatureDynamicGroup::getFeatureProperty(string const&, string&)",        // 4
         "DriverFeatureDynamicGroup::getFeatureProperty(string const&, int*)",           // 5
         "DriverFeatureDynamicGroup::getFeatureProperty(string const&, bool*)",          // 6
         "DriverFeatureDynamicGroup::getFeatureProperty(string const&, float*)",         // 7
         "DriverFeatureDynamicGroup::getFeatureType()",                                  // 8
         "CoreFeature::fetchNumberOfOptions()",                                          // 9
         "CoreFeature::fetchOptionIndexByName(string const&)",                           // 10
         "CoreFeature::fetchCurrentOption()",                                            // 11
         "CoreFeature::fetchOptionByName(string const&, string const&)",                 // 12
         "CoreFeature::fetchOptionByName(string)",                                       // 13
         "CoreFeature::fetchOptionByIndex(int)",                                         // 14
         "DriverFeatureDynamicGroup::addStaticGroupToDynamicGroup(AttributeMap&)",       // 15
         "DriverFeatureDynamicGroup::fetchNumberOfDynamicEntries()",                     // 16
         "DriverFeatureDynamicGroup::getDynamicEntryByIndex(unsigned int)",              // 17
         "DriverFeatureDynamicGroup::removeDynamicEntryByIndex(unsigned int)",           // 18
         "DriverFeatureDynamicGroup::removeAllDynamicEntries()",                         // 19
         "DriverFeatureDynamicGroup::detectDuplicateRecord(AttributeMap&)",              // 20
         "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(string const&, "
         "string const&, bool)",  // 21
         "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(string const&, "
         "int, bool)",  // 22
         "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(string const&, "
         "float, bool)",  // 23
         "DriverFeatureDynamicGroup::setFeaturePropertyWithConstraintControl(string const&, "
         "bool, bool)",                                               // 24
         "DriverFeatureDynamicGroup::isConstraintSetEmpty()",         // 25
         "DriverFeatureDynamicGroup::addConstraint(long const&)",     // 26
         "DriverFeatureDynamicGroup::removeConstraint(long const&)",  // 27
         "DriverFeatureDynamicGroup::fetchSelectedEntries()",         // 28
         "DriverFeatureDynamicGroup::addStaticGroupToDynamicGroupWithSort(AttributeMap&, "
         "bool)",                                  // 29
         "DriverFeatureDynamicGroup::sortList()",  // 30
     }},
    {"_ZTV16DriverFeatureSet",
     {
         "DriverFeatureSet::dumpFeatureListValues()",                                    // 0
         "DriverFeatureSet::fetchNumberOfFeatures()",                                    // 1
         "DriverFeatureSet::fetchFeatureByIndex(int)",                                   // 2
         "DriverFeatureSet::FindFeatureInFeatureList(string const&)",                    // 3
         "DriverFeatureSet::FindFeatureInFeatureList(string const&, string const&)",     // 4
         "DriverFeatureSet::CreateOptionForFeature(string const&, string const&, int)",  // 5
         "DriverFeatureSet::serialize(string&, int, bool, char const*, char const*)",    // 6
         "DriverFeatureSet::restoreDefaultFeatureValues()",                              // 7
     }},
};

// A mangled name as a declaration has it, with std::string by its short name.
std::string demangle(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
  if (status != 0) return symbol;
  std::string text = name.get();
  const std::string longName =
      "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >";
  for (std::size_t at = 0; (at = text.find(longName)) != std::string::npos;) {
    text.replace(at, longName.size(), "string");
  }
  return text;
}

class TableEntriesTest : public LoadedLibraryTest {
 protected:
  void SetUp() override {
    if (kSanitized) GTEST_SKIP() << kWhySkipped;
    LoadedLibraryTest::SetUp();
    link_map* map = nullptr;
    Dl_info place{};
    ASSERT_NE(dladdr1(library_.find("GetMasterFeatureList"), &place, reinterpret_cast<void**>(&map),
                      RTLD_DL_LINKMAP),
              0);
    base_ = map->l_addr;
    for (const ElfFile::Symbol& symbol : ElfFile(DRIVER_FEATURE_LIBRARY).symbols()) {
      // A name with a dot is the compiler's second name for a function.
      if (!symbol.defined || symbol.name.find('.') != std::string::npos) continue;
      byName_.insert({symbol.name, symbol});
      byAddress_.insert({symbol.value, symbol.name});
    }
    ASSERT_FALSE(byName_.empty()) << "the library has been stripped";
  }

  // The words of a table from slot 0 on.
  std::vector<ElfFile::Address> slotsOf(const std::string& table) const {
    const auto found = byName_.find(table);
    if (found == byName_.end()) return {};
    const auto* words = reinterpret_cast<const ElfFile::Address*>(base_ + found->second.value);
    return {words + kWordsBeforeSlots, words + found->second.size / sizeof(void*)};
  }

  std::string functionAt(ElfFile::Address address) const {
    const auto found = byAddress_.find(address - base_);
    return found == byAddress_.end() ? "(no function)" : demangle(found->second);
  }

  ElfFile::Address base_ = 0;
  std::map<std::string, ElfFile::Symbol> byName_;
  std::map<ElfFile::Address, std::string> byAddress_;
};

TEST_F(TableEntriesTest, Tables_EachClass_HasTheNumberOfSlotsThatHostsKnow) {
  EXPECT_EQ(slotsOf("_ZTV19DriverFeatureOption").size(), 7U);
  EXPECT_EQ(slotsOf("_ZTV13DriverFeature").size(), 26U);
  EXPECT_EQ(slotsOf("_ZTV24DriverFeatureStaticGroup").size(), 17U);
  EXPECT_EQ(slotsOf("_ZTV25DriverFeatureDynamicGroup").size(), 31U);
  EXPECT_EQ(slotsOf("_ZTV16DriverFeatureSet").size(), 8U);
}

TEST_F(TableEntriesTest, Tables_EachSlot_HoldsItsOperation) {
  for (const TableRow& table : kTables) {
    SCOPED_TRACE(demangle(table.symbol));
    std::vector<std::string> functions;
    for (const ElfFile::Address address : slotsOf(table.symbol)) {
      functions.push_back(functionAt(address));
    }
    EXPECT_THAT(functions, ElementsAreArray(table.slots));
  }
}

TEST_F(TableEntriesTest, Tables_NoSlot_HoldsADestructor) {
  for (const TableRow& table : kTables) {
    SCOPED_TRACE(demangle(table.symbol));
    for (const ElfFile::Address address : slotsOf(table.symbol)) {
      EXPECT_THAT(functionAt(address), Not(HasSubstr("~")));
    }
  }
}

TEST_F(TableEntriesTest, MasterSet_FirstWord_PointsToSlotZeroOfItsTable) {
  const auto* words = reinterpret_cast<const ElfFile::Address*>(&library_.set());
  const auto table = byName_.find("_ZTV16DriverFeatureSet");
  ASSERT_NE(table, byName_.end());
  EXPECT_EQ(words[0], base_ + table->second.value + kWordsBeforeSlots * sizeof(void*));
}

}  // namespace
}  // namespace driver_feature::testing

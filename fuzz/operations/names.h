// The names and texts that programs are made of.
#ifndef FUZZ_OPERATIONS_NAMES_H_
#define FUZZ_OPERATIONS_NAMES_H_

#include <array>
#include <cstddef>
#include <iterator>

#include "tests/support/property_facts.h"

namespace driver_feature::operations {

// Every property of features and groups, then of options only, then names
// that nobody knows. Inputs choose by position.
inline constexpr auto kPropertyNames = [] {
  constexpr std::array kOthers = {
      "DisplayText", "SNMPValue", "TESKTicketCommand", "name", "Names", "Nam", "", "ZZ", "A"};
  std::array<const char*, std::size(testing::kPropertyFacts) + kOthers.size()> names{};
  std::size_t count = 0;
  for (const testing::PropertyFacts& facts : testing::kPropertyFacts) names[count++] = facts.name;
  for (const char* name : kOthers) names[count++] = name;
  return names;
}();

// Properties that need a value type, a routine or a notification: half of all
// choices fall on these.
inline constexpr std::array<const char*, 16> kLivelyPropertyNames = {
    "CurrentIntValue",
    "CurrentTextValue",
    "CurrentFloatValue",
    "ValueString",
    "ValueString",
    "FeatureType",
    "FeatureValueType",
    "Sensitivity",
    "Visibility",
    "AddCallbackRoutine",
    "Name",
    "Encrypted",
    "SortFunctionName",
    "DefaultIntValue",
    "OriginalIntValue",
    "RecordInFocus",
};

inline constexpr std::array<const char*, 24> kTexts = {
    "",      "A4",      "Letter", "Legal", "Media",        "Copies", "Title", "Scale",
    "Tray",  "Booklet", "Job",    "Jobs",  "12abc",        "2",      "-7",    "2.5",
    " 1e40", "nan",     "-inf",   "0x1p3", "999999999999", "%s",     "Tray2", "Name",
};

// Commands: of each kind of value, without a conversion, and some that are
// refused.
inline constexpr std::array<const char*, 16> kTemplates = {
    "%s", "[%s]", "%%%s;", "%-8s|", "%8s|", "%.2s", "%d",    "@PJL SET N=%05d\r\n",
    "%x", "%ld",  "%c",    "%.2f",  "%g",   "100%", "plain", "%s%s",
};

inline constexpr std::array<int, 16> kNumbers = {
    0, 1, 2, 3, 4, 5, 6, 7, 8, 9, -1, -2, 200, 2147483647, -2147483647 - 1, 65};

inline constexpr std::array<float, 8> kReals = {0.0F,  -0.0F, 2.5F,  65.9F,
                                                -3.7F, 1e30F, 300.F, 2147483648.0F};

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_NAMES_H_

// The attributes with registered names that one feature can carry, how its feature
// is recognised, and what its choices are called.
#ifndef HOST_IPP_STANDARD_ROWS_H_
#define HOST_IPP_STANDARD_ROWS_H_

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// A word of IPP, and the names for it in descriptions and PPDs: bare names
// between blanks (host/ipp/words.h).
struct WordRow {
  std::string_view word;
  std::string_view names;
};

struct StandardRow {
  std::string_view name;
  Syntax syntax;
  bool isMediaMember;
  bool isClosed;              // Has no words but those of IPP.
  std::string_view features;  // Bare names of features, the surest first.
  std::span<const WordRow> words;
  std::string_view usual;  // The default if no feature has one; empty: not without one.
};

std::span<const StandardRow> standardRows();

// The word for a choice; nothing when a closed row does not have it.
std::optional<std::string> wordFor(const StandardRow& row, const ChoiceCapability& choice);

// "600x600dpi" for a resolution such as "600", "600dpi" and "600 x 600 dpi"; nothing
// for other texts.
std::optional<std::string> resolutionWord(std::string_view text);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_STANDARD_ROWS_H_

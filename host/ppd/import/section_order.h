// The order in which libcups writes the entries of a section of a PPD file.
#ifndef HOST_PPD_IMPORT_SECTION_ORDER_H_
#define HOST_PPD_IMPORT_SECTION_ORDER_H_

#include <string>
#include <vector>

namespace driver_feature::ppd {

// An entry that a section may hold.
struct SectionEntry {
  std::string keyword;  // Of the option.
  float order = 0;      // Its order dependency.
  bool usual = true;    // Marked by default, or by any usual choice.
  // Of an entry that is not usual: the keyword of the usual one that is then
  // not marked; empty for none.
  std::string replaces;
  bool vanishes = false;  // Usual, but marking another option can unmark it.
  std::size_t item = 0;   // The caller's number of the entry.
};

struct SectionOrder {
  // The items in the order in which libcups writes them: by order dependency,
  // and among equals as its sorting leaves them, which does not keep their
  // order. Exact while what is usual is marked, with one unusual entry more.
  std::vector<std::size_t> items;
  // The keywords of entries that change the order of others with equal order
  // dependencies when they are marked or unmarked. No fixed order can follow
  // that.
  std::vector<std::string> unsettling;
};

// `entries` must have orders that libcups writes.
SectionOrder orderOfSection(const std::vector<SectionEntry>& entries);

// Whether libcups writes entries with this order dependency: it leaves out
// those below 0 and NaN.
inline bool isWritten(float order) {
  return order >= 0;
}

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_SECTION_ORDER_H_

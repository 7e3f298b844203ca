// The state of an import in progress, to which its parts add.
#ifndef HOST_PPD_IMPORT_IMPORT_STATE_H_
#define HOST_PPD_IMPORT_IMPORT_STATE_H_

#include <cups/ppd.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/ppd/import/imported_element.h"
#include "host/ppd/import/losses.h"
#include "host/ppd/import/section_order.h"

namespace driver_feature::ppd {

// Elements that stay together in a section.
struct SectionItem {
  SectionEntry entry;
  std::vector<ImportedElement> elements;
};

// Where libcups writes something.
struct WritingPlace {
  ppd_section_t section = PPD_ORDER_ANY;
  float order = 0;
};

struct ImportState {
  explicit ImportState(ppd_file_t& file) : ppd(file) {}

  ppd_file_t& ppd;
  std::map<std::string, WritingPlace> customPlaces;  // Of "CustomKeyword", if the file gives it.
  std::map<ppd_section_t, std::vector<SectionItem>> sections;
  std::vector<ImportedElement> unwritten;  // Features that libcups never writes.
  std::set<std::string> names;             // Of features and groups so far.
  Losses losses;
  long routines = 0;  // The number of output routines in use.

  // Adds elements to a section; `entry.item` is filled in here, and its order
  // is one that libcups writes.
  void add(ppd_section_t section, SectionEntry entry, std::vector<ImportedElement> elements) {
    std::vector<SectionItem>& items = sections[section];
    entry.item = items.size();
    items.push_back({std::move(entry), std::move(elements)});
  }

  // Takes a name for a feature. False when it is empty or another has it.
  bool take(const std::string& name) { return !name.empty() && names.insert(name).second; }
};

// One option of a "MultiSelect" feature.
struct ImportedOption {
  std::string name;
  std::string command;
};

// Whether a section's text is PJL; it is PostScript otherwise.
inline bool isPjl(ppd_section_t section) {
  return section == PPD_ORDER_JCL;
}

// The attribute that holds a section's commands.
inline const char* commandOf(ppd_section_t section) {
  return isPjl(section) ? "PJLCommand" : "PSCommand";
}

// The element of an option, with its command in the section's language.
ImportedElement optionElement(ppd_section_t section, const ImportedOption& option);

// A "MultiSelect" feature that writes the command of its current option.
ImportedElement listFeature(ppd_section_t section, const std::string& name,
                            const std::string& defaultOption,
                            const std::vector<ImportedOption>& options);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_IMPORT_STATE_H_

// The order in which a dialog shows the features: that of the description.
#ifndef HOST_PAGE_LAYOUT_H_
#define HOST_PAGE_LAYOUT_H_

#include <map>
#include <string>
#include <vector>

#include "host/base/position.h"
#include "host/page/catalog.h"
#include "host/session/session.h"

namespace driver_feature::page {

struct Section {
  enum class Kind : unsigned char { kFeatures, kGroup, kRecords, kHardware };

  Kind kind = Kind::kFeatures;
  std::string id;     // The group's name; empty without a group.
  std::string outer;  // The name of the group around it.
  std::vector<std::string> members;
};

struct Layout {
  // Features outside of groups first, those that say what the printer has last.
  // Sections without a member are left out.
  std::vector<Section> sections;
  std::map<std::string, host::Position> places;  // Of features and groups.
  // Whether routines of libraries run, which may crash.
  bool hasForeignRoutines = false;
};

// Reads the description again, for its order and its columns. Without it (it is
// standard input, or is gone) all features are in one section, by name.
Layout layoutOf(const host::Session& session, const Catalog& catalog);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_LAYOUT_H_

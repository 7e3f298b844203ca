// What people see together: features under a heading.
#ifndef HOST_DESCRIPTION_PANELS_H_
#define HOST_DESCRIPTION_PANELS_H_

#include <string>
#include <vector>

#include "host/description/rules.h"

namespace driver_feature::host {

struct PanelMember {
  std::string feature;
  SourcePlace place = {};
};

struct Panel {
  std::string name;
  std::string text;  // In the description's own language; may be empty.
  std::vector<PanelMember> members;
  SourcePlace place = {};
};

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_PANELS_H_

// The constraints of a PPD file, as libcups reads them.
#ifndef HOST_PPD_IMPORT_CONSTRAINTS_H_
#define HOST_PPD_IMPORT_CONSTRAINTS_H_

#include <cups/ppd.h>

#include <string>
#include <vector>

namespace driver_feature::ppd {

// An option and one of its choices; an empty choice means any.
struct ConstrainedChoice {
  std::string option;
  std::string choice;
};

struct Constraint {
  std::vector<ConstrainedChoice> choices;
  // "*Duplex On *PageSize A5".
  std::string text() const;
};

// Those of UIConstraints and NonUIConstraints, then those of cupsUIConstraints;
// whether the file has the options or not.
std::vector<Constraint> constraintsOf(ppd_file_t& ppd);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_CONSTRAINTS_H_

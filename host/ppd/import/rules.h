// The constraints of a PPD file as rules.
#ifndef HOST_PPD_IMPORT_RULES_H_
#define HOST_PPD_IMPORT_RULES_H_

#include <cups/ppd.h>

#include "host/description/rules.h"
#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// The rules that say what the file's constraints say to libcups: each holds for
// the choices of the features that importPpd() makes of the options exactly when
// libcups finds a conflict for the same choices of the options. The options of
// the group InstallableOptions are hardware.
//
// Constraints of two choices are gathered: one rule stands for all pairs of some
// choices of one option and some of another. Constraints that libcups ignores,
// because they name something that the file does not have, are left out. What
// cannot be a rule is noted.
host::Rules rulesOf(ppd_file_t& ppd, Losses& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_RULES_H_

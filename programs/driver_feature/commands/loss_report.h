// Reports what an import has not carried over.
#ifndef PROGRAMS_DRIVER_FEATURE_COMMANDS_LOSS_REPORT_H_
#define PROGRAMS_DRIVER_FEATURE_COMMANDS_LOSS_REPORT_H_

#include <map>
#include <string>
#include <vector>

#include "host/ppd/import/losses.h"

namespace driver_feature::cli {

// The number of losses of each kind.
using LossCounts = std::map<ppd::LossKind, long>;

LossCounts countsOf(const ppd::Losses& losses);

// "2 constraints, 1 text for users"; empty when there are none.
std::string countText(const LossCounts& counts);

// A few lines for a file: the first parts of options by their names, and one
// with the number of all other losses. `hint` ends the latter.
std::vector<std::string> summaryOf(const ppd::Losses& losses, const std::string& hint);

// Whether something is lost that an option does or that forbids a combination
// of choices. Texts and keywords that no description has a place for, which
// nearly every PPD file holds, are not counted.
bool losesChoices(const ppd::Losses& losses);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_COMMANDS_LOSS_REPORT_H_

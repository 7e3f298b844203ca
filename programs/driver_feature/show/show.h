// The features of a model with their current values, for reading.
#ifndef PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_H_
#define PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_H_

#include <cstddef>
#include <string>

#include "host/session/session.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/setting.h"

namespace driver_feature::cli {

class PeopleTexts;

// A table with a heading and one row per feature, in the order of the names,
// followed by the groups and the records of the set. `width` is the number of
// columns of the terminal, 0 when the table goes somewhere else: then nothing
// is wrapped or cut. With `texts`, there is a column of what people see, and each
// choice has it after its name.
std::string showTable(const host::Model& model, CoreFeatureSet& set, std::size_t width,
                      const PeopleTexts* texts = nullptr);

// The same, with the panels, as an indented JSON document with a line end.
std::string showJson(const host::Session& session, host::RuleKeeper& rules,
                     const PeopleTexts* texts = nullptr);

// A feature's current value as the table shows it; "-" when it has none.
std::string valueText(const host::FeatureView& feature);

// The columns of the terminal that standard output goes to; 0 when it goes
// elsewhere, and 80 for a terminal that does not report its width.
std::size_t terminalWidth();

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHOW_SHOW_H_

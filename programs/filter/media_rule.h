// Values of sizes and sides that libcups ignores, or takes for another size,
// although the PPD does not have them.
#ifndef PROGRAMS_FILTER_MEDIA_RULE_H_
#define PROGRAMS_FILTER_MEDIA_RULE_H_

#include <string>

#include "host/ppd/plain/queue_ppd.h"
#include "host/settings/setting.h"

namespace driver_feature::filter {

// Whether the value is a custom one: "Custom", "Custom.VALUE" or
// "{PARAMETER=VALUE ...}".
bool isCustom(const std::string& value);

// Refuses a value such as "Custom.200x300" that is not a size. Accepts one that
// does not begin with "Custom.".
host::Result<> checkCustomSize(const std::string& value);

// Refuses a value of "media", a list of sizes, trays and types, that the PPD
// cannot have. Accepts any where the PPD has no sizes. What is marked changes.
host::Result<> checkMedia(ppd::QueuePpd& ppd, const std::string& value);

// Refuses a value of "sides" that the PPD cannot have. Accepts other options, and
// any value where the PPD has no choice between one side and both. What is
// marked changes.
host::Result<> checkSides(ppd::QueuePpd& ppd, const host::Setting& option);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_MEDIA_RULE_H_

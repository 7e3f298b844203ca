// Values of sizes and sides that libcups ignores, or takes for another size,
// although the PPD does not have them.
#ifndef FILTER_MEDIA_RULE_H_
#define FILTER_MEDIA_RULE_H_

#include <string>

#include "filter/queue_ppd.h"
#include "host/settings.h"

namespace driver_feature {

// Whether the value is a custom one: "Custom", "Custom.VALUE" or
// "{PARAMETER=VALUE ...}".
bool isCustom(const std::string& value);

// Why a value such as "Custom.200x300" is no size. Nothing for a value that
// does not begin with "Custom.".
Refusal customSizeRefusal(const std::string& value);

// Why the PPD cannot have a value of "media": a list of sizes, trays and types.
// Nothing where the PPD has no sizes. What is marked changes.
Refusal mediaRefusal(QueuePpd& ppd, const std::string& value);

// Why the PPD cannot have the option, if that is "sides". Nothing where it has
// no choice between one side and both. What is marked changes.
Refusal sidesRefusal(QueuePpd& ppd, const Setting& option);

}  // namespace driver_feature

#endif  // FILTER_MEDIA_RULE_H_

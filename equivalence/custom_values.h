// Values of custom parameters.
#ifndef EQUIVALENCE_CUSTOM_VALUES_H_
#define EQUIVALENCE_CUSTOM_VALUES_H_

#include <cups/ppd.h>

#include <string>

#include "equivalence/random.h"

namespace driver_feature::equivalence {

// The shortest decimal text that reads back as the same float.
std::string shortestText(float value);

// The parameter's current value as text.
std::string customValueOf(const ppd_cparam_t& parameter);

// Stores a value given as a text; a number has no unit.
void storeCustomValue(ppd_cparam_t& parameter, const std::string& value);

// A value within the parameter's limits. Numbers are multiples of a quarter
// where the limits allow it: libcups reserves 10 bytes for the text of each,
// and writes further decimals past its buffer.
std::string randomCustomValue(const ppd_cparam_t& parameter, Random& random);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_CUSTOM_VALUES_H_

// The limits of the parameters of custom choices.
#ifndef HOST_PPD_IMPORT_CUSTOM_LIMITS_H_
#define HOST_PPD_IMPORT_CUSTOM_LIMITS_H_

#include <cups/ppd.h>

#include <optional>
#include <string>

#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// Either may be missing.
template <class Number>
struct Limits {
  std::optional<Number> least;
  std::optional<Number> greatest;
};

// The limits of a parameter. What a description cannot hold is noted: limits
// that are not finite numbers (libcups reads infinity from 1e999 and 0 from
// inf, and keeps no value within either), and both of them when the least is
// above the greatest.
Limits<float> realLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                         Losses& losses);
Limits<int> intLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                      Losses& losses);

// The least and greatest length of a text, 0 for none.
Limits<int> lengthLimits(ppd_file_t& ppd, const ppd_option_t& option, const ppd_cparam_t& parameter,
                         Losses& losses);

// The limits of a side of custom page sizes; side 0 is "Width", and 1 "Height".
Limits<float> sideLimits(ppd_file_t& ppd, const ppd_option_t& option, int side, Losses& losses);

// "*ParamCustomPageSize Width".
std::string parameterTitle(const ppd_option_t& option, const char* parameter);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_CUSTOM_LIMITS_H_

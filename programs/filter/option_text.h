// The options of a job as libcups takes them out of their text.
#ifndef PROGRAMS_FILTER_OPTION_TEXT_H_
#define PROGRAMS_FILTER_OPTION_TEXT_H_

#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::filter {

// By their names; of one that is given twice the last.
std::vector<host::Setting> parseOptions(const std::string& text);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_OPTION_TEXT_H_

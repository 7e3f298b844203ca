// The options of a job that libcups turns into choices of a PPD.
#ifndef PROGRAMS_FILTER_LIBCUPS_OPTIONS_H_
#define PROGRAMS_FILTER_LIBCUPS_OPTIONS_H_

#include <string_view>

namespace driver_feature::filter {

// Whether users give the option to ask for a choice of the PPD by another name.
bool isKnownToLibcups(std::string_view option);

// Whether libcups makes choices of it, or of others because of it. In any case of
// letters, and also options that only programs give.
bool concernsLibcups(std::string_view option);

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_LIBCUPS_OPTIONS_H_

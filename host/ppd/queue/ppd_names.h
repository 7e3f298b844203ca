// Which names of features and options a PPD can hold.
#ifndef HOST_PPD_QUEUE_PPD_NAMES_H_
#define HOST_PPD_QUEUE_PPD_NAMES_H_

#include <string>

namespace driver_feature::ppd {

// Whether a PPD can have a choice of that name.
bool isChoiceName(const std::string& name);

// Whether a PPD can have an option of that name; `isList` says that it needs no
// custom value. libcups reads the file as it should only when its other keywords
// with the name in them fit, too, and when it takes the name for no keyword of
// its own.
bool isOptionName(const std::string& name, bool isList);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_PPD_NAMES_H_

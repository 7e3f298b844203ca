// A PPD made of the features of a description, for a queue without a PPD of
// its own: users and their programs see the options.
#ifndef HOST_PPD_QUEUE_MINIMAL_PPD_H_
#define HOST_PPD_QUEUE_MINIMAL_PPD_H_

#include <string>
#include <vector>

#include "host/description/additions.h"
#include "host/settings/setting.h"

namespace driver_feature::ppd {

struct MinimalPpd {
  std::string text;
  std::vector<std::string> losses;  // What it does not hold, and why.
};

// The PPD, named `name` for users. It has an option for every visible feature
// that is a list or a number, with the present value as its default; or with
// "Unknown", so that the description's own is used, when the PPD cannot hold the
// value. The options have no commands: those are the description's.
//
// It has page sizes in any case. Those of the feature "PageSize"; without it,
// or when the size of none of its choices is known, standard ones, which then
// only say to filters that convert documents how large a page is.
//
// What is beside the features is included: rules as constraints, hardware
// as the group InstallableOptions, texts in all languages, and the sizes and
// margins of sheets.
//
// Where a choice has another name than in the description, because a PPD gives
// it one, a line such as
//
//   *DriverFeatureChoice: "Duplex DuplexNoTumble LongEdge"
//
// says which of the description's options it is.
MinimalPpd minimalPpd(const host::Model& model, const host::Additions& additions,
                      const std::string& name, const std::vector<std::string>& queueLines);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_MINIMAL_PPD_H_

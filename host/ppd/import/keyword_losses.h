// The other parts of a PPD file that have no place in a description.
#ifndef HOST_PPD_IMPORT_KEYWORD_LOSSES_H_
#define HOST_PPD_IMPORT_KEYWORD_LOSSES_H_

#include <cups/ppd.h>

#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// Notes the constraints, the texts for users, and the keywords that belong to
// no option.
void noteKeywords(ppd_file_t& ppd, Losses& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_KEYWORD_LOSSES_H_

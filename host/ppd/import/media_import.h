// The page sizes of a PPD file.
#ifndef HOST_PPD_IMPORT_MEDIA_IMPORT_H_
#define HOST_PPD_IMPORT_MEDIA_IMPORT_H_

#include <cups/ppd.h>

#include <optional>

#include "host/ppd/import/imported_element.h"
#include "host/ppd/import/imported_names.h"
#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// The element with the sizes and margins of the options of the feature PageSize,
// in millimetres from which the file's points come back; nothing when there are
// none. What it does not hold is noted.
std::optional<ImportedElement> mediaElement(ppd_file_t& ppd, const ImportedNames& names,
                                            Losses& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_MEDIA_IMPORT_H_

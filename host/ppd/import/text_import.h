// What a PPD file shows to users, as texts of the description.
#ifndef HOST_PPD_IMPORT_TEXT_IMPORT_H_
#define HOST_PPD_IMPORT_TEXT_IMPORT_H_

#include <cups/ppd.h>

#include <string_view>
#include <vector>

#include "host/description/panels.h"
#include "host/description/texts.h"
#include "host/ppd/import/imported_names.h"
#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// The texts of the features, their options and the panels: first those in the file's own
// language, then those of its translations. `bytes` is the file's text, because
// libcups gives the translations into one language only. A text that is the name
// itself is left out, and so is one that libcups gives to the name.
std::vector<host::TextsOfLanguage> textsOf(ppd_file_t& ppd, std::string_view bytes,
                                           const ImportedNames& names,
                                           const std::vector<host::Panel>& panels, Losses& losses);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_TEXT_IMPORT_H_

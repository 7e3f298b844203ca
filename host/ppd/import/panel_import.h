// The groups of a PPD file's options, as panels of the description.
#ifndef HOST_PPD_IMPORT_PANEL_IMPORT_H_
#define HOST_PPD_IMPORT_PANEL_IMPORT_H_

#include <cups/ppd.h>

#include <string_view>
#include <vector>

#include "host/description/panels.h"
#include "host/ppd/import/imported_element.h"
#include "host/ppd/import/imported_names.h"

namespace driver_feature::ppd {

// The groups with the features that the import has created from their options,
// and with the file's texts; groups without any are left out. libcups has a group
// for options outside of all others, General or JCL. It is left out unless the
// file gives it a text or, in `bytes`, a translation.
std::vector<host::Panel> panelsOf(ppd_file_t& ppd, std::string_view bytes,
                                  const ImportedNames& names);

// Without the texts, which are beside it.
ImportedElement panelsElement(const std::vector<host::Panel>& panels);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_PANEL_IMPORT_H_

// What an import puts beside the features, as elements.
#ifndef HOST_PPD_IMPORT_ADDITIONS_ELEMENTS_H_
#define HOST_PPD_IMPORT_ADDITIONS_ELEMENTS_H_

#include "host/description/rules.h"
#include "host/description/texts.h"
#include "host/ppd/import/imported_element.h"
#include "host/ppd/import/imported_names.h"
#include "host/ppd/import/losses.h"

namespace driver_feature::ppd {

// The rules without the parts about features and options that could not be
// imported. Rules of which nothing remains are noted.
host::Rules importedRules(host::Rules rules, const ImportedNames& names, Losses& losses);

ImportedElement rulesElement(const host::Rules& rules);
ImportedElement textsElement(const host::TextsOfLanguage& texts);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_ADDITIONS_ELEMENTS_H_

// The functions of gettext's library that read a translator's file. They are
// needed only where there is such a file, so no program is linked with the
// library.
#ifndef HOST_DESCRIPTION_GETTEXT_PO_H_
#define HOST_DESCRIPTION_GETTEXT_PO_H_

#include <gettext-po.h>

namespace driver_feature::host {

struct GettextPo {
  decltype(&::po_file_read) read;
  decltype(&::po_file_domain_header) header;
  decltype(&::po_header_field) headerField;
  decltype(&::po_message_iterator) iterator;
  decltype(&::po_next_message) next;
  decltype(&::po_message_msgctxt) context;
  decltype(&::po_message_msgid) id;
  decltype(&::po_message_msgid_plural) pluralId;
  decltype(&::po_message_msgstr) translation;
  decltype(&::po_message_msgstr_plural) pluralTranslation;
  decltype(&::po_message_is_obsolete) isObsolete;
  decltype(&::po_message_is_fuzzy) isFuzzy;
};

// Loads the library at the first call. Throws std::runtime_error when it cannot
// be loaded.
const GettextPo& gettextPo();

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_GETTEXT_PO_H_

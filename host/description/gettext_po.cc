#include "host/description/gettext_po.h"

#include "host/base/late_library.h"

namespace driver_feature::host {

namespace {

constexpr LateLibrary kLibrary("libgettextpo.so.0", "libgettextpo0");

GettextPo load() {
  return {
      // The header gives this name to the operation that is called.
      .read = kLibrary.function<decltype(::po_file_read)>("po_file_read_v3"),
      .header = kLibrary.function<decltype(::po_file_domain_header)>("po_file_domain_header"),
      .headerField = kLibrary.function<decltype(::po_header_field)>("po_header_field"),
      .iterator = kLibrary.function<decltype(::po_message_iterator)>("po_message_iterator"),
      .next = kLibrary.function<decltype(::po_next_message)>("po_next_message"),
      .context = kLibrary.function<decltype(::po_message_msgctxt)>("po_message_msgctxt"),
      .id = kLibrary.function<decltype(::po_message_msgid)>("po_message_msgid"),
      .pluralId = kLibrary.function<decltype(::po_message_msgid_plural)>("po_message_msgid_plural"),
      .translation = kLibrary.function<decltype(::po_message_msgstr)>("po_message_msgstr"),
      .pluralTranslation =
          kLibrary.function<decltype(::po_message_msgstr_plural)>("po_message_msgstr_plural"),
      .isObsolete = kLibrary.function<decltype(::po_message_is_obsolete)>("po_message_is_obsolete"),
      .isFuzzy = kLibrary.function<decltype(::po_message_is_fuzzy)>("po_message_is_fuzzy"),
  };
}

}  // namespace

const GettextPo& gettextPo() {
  static const GettextPo functions = load();
  return functions;
}

}  // namespace driver_feature::host

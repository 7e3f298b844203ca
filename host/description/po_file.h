// Texts in a translator's file, as gettext has it: msgctxt is the key of a text,
// msgid the text of the first language, msgstr the translation.
//
//   msgctxt "Duplex.None"
//   msgid "Off"
//   msgstr "Aus"
#ifndef HOST_DESCRIPTION_PO_FILE_H_
#define HOST_DESCRIPTION_PO_FILE_H_

#include <string>

#include "host/base/result.h"
#include "host/description/texts.h"

namespace driver_feature::host {

// The translated texts of a file, and what is wrong with the others.
struct PoTexts {
  TextsOfLanguage texts;
  Problems problems;
};

// Reads a file with the library of gettext. Entries that are not translated,
// marked as fuzzy or obsolete give no text; of one with plural forms the first
// counts. Each fault of the file, and each entry without msgctxt, is a problem.
// Without the library there are no texts, and the problem names its package.
PoTexts readPoFile(const std::string& path, const std::string& language);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_PO_FILE_H_

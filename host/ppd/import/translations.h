// A PPD file's texts in further languages.
#ifndef HOST_PPD_IMPORT_TRANSLATIONS_H_
#define HOST_PPD_IMPORT_TRANSLATIONS_H_

#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::ppd {

// "*de.PageSize A4/Blatt: """ is {"de", "PageSize", "A4", "Blatt"}.
struct Translation {
  std::string language;  // A tag.
  std::string keyword;
  std::string spec;
  std::string text;
};

// Those of a PPD's text, in its order, that have a text. libcups itself reads
// those of the user's language only.
std::vector<Translation> translationsOf(std::string_view ppd);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_TRANSLATIONS_H_

#include "host/ipp/taken_names.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

#include "host/ipp/words.h"

namespace driver_feature::ipp {

namespace {

// Names that IPP has, with the syntax of those that a feature may have for itself.
// The others mean something that no feature is asked for.
struct TakenName {
  std::string_view name;
  std::optional<Syntax> syntax;
};

constexpr TakenName kTaken[] = {
    {"copies", {}},
    {"cover-back", {}},
    {"cover-front", {}},
    {"feed-orientation", Syntax::kKeyword},
    {"finishings", {}},
    {"finishings-col", {}},
    {"font-name-requested", Syntax::kName},
    {"font-size-requested", Syntax::kInteger},
    {"force-front-side", {}},
    {"imposition-template", Syntax::kKeyword},
    {"insert-sheet", {}},
    {"ipp-attribute-fidelity", {}},
    {"job-account-id", Syntax::kName},
    {"job-account-type", Syntax::kKeyword},
    {"job-accounting-sheets", {}},
    {"job-accounting-user-id", Syntax::kName},
    {"job-delay-output-until", {}},
    {"job-error-sheet", {}},
    {"job-hold-until", {}},
    {"job-impressions", {}},
    {"job-k-octets", {}},
    {"job-media-sheets", {}},
    {"job-message-to-operator", {}},
    {"job-name", {}},
    {"job-originating-user-name", {}},
    {"job-pages", {}},
    {"job-pages-per-set", {}},
    {"job-password", {}},
    {"job-password-encryption", {}},
    {"job-phone-number", {}},
    {"job-priority", {}},
    {"job-recipient-name", {}},
    {"job-save-disposition", {}},
    {"job-sheet-message", {}},
    {"job-sheets", Syntax::kKeyword},
    {"job-sheets-col", {}},
    {"multiple-document-handling", {}},
    {"number-up", {}},
    {"orientation-requested", {}},
    {"output-bin", {}},
    {"output-device", {}},
    {"overrides", {}},
    {"page-border", {}},
    {"page-delivery", Syntax::kKeyword},
    {"page-order-received", Syntax::kKeyword},
    {"page-ranges", {}},
    {"page-set", {}},
    {"pdl-init-file", {}},
    {"presentation-direction-number-up", Syntax::kKeyword},
    {"print-color-mode", {}},
    {"print-content-optimize", {}},
    {"print-darkness", Syntax::kInteger},
    {"print-quality", {}},
    {"print-rendering-intent", {}},
    {"print-scaling", {}},
    {"print-speed", Syntax::kInteger},
    {"printer-resolution", {}},
    {"proof-print", {}},
    {"requested-attributes", {}},
    {"requesting-user-name", {}},
    {"separator-sheets", {}},
    {"sides", {}},
    {"x-image-position", Syntax::kKeyword},
    {"x-image-shift", Syntax::kInteger},
    {"x-side1-image-shift", Syntax::kInteger},
    {"x-side2-image-shift", Syntax::kInteger},
    {"y-image-position", Syntax::kKeyword},
    {"y-image-shift", Syntax::kInteger},
    {"y-side1-image-shift", Syntax::kInteger},
    {"y-side2-image-shift", Syntax::kInteger},
};

// Prefixes of attributes of operations, and of members of media-col.
constexpr std::string_view kTakenPrefixes[] = {"attributes-", "document-", "media-",  "printer-",
                                               "compression", "job-id",    "job-uri", "job-state"};
// Endings with which a name would be another attribute's.
constexpr std::string_view kTakenEndings[] = {"-default",  "-supported",  "-ready",
                                              "-database", "-configured", "-actual"};

}  // namespace

bool isFreeAttributeName(const std::string& name, Syntax syntax) {
  if (!isKeyword(name)) return false;
  for (const TakenName& taken : kTaken) {
    if (taken.name == name) return taken.syntax == syntax;
  }
  const auto begins = [&name](std::string_view prefix) { return name.starts_with(prefix); };
  const auto ends = [&name](std::string_view ending) { return name.ends_with(ending); };
  return std::none_of(std::begin(kTakenPrefixes), std::end(kTakenPrefixes), begins) &&
         std::none_of(std::begin(kTakenEndings), std::end(kTakenEndings), ends);
}

}  // namespace driver_feature::ipp

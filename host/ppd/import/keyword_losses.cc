#include "host/ppd/import/keyword_losses.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "host/ppd/languages.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

// Whether the import has read the keyword for an option of the file.
bool belongsToOption(ppd_file_t& ppd, const ppd_attr_t& attribute) {
  const std::string_view name = attribute.name;
  for (const std::string_view prefix : {"Default", "ParamCustom", "Custom"}) {
    if (!name.starts_with(prefix)) continue;
    if (ppdFindOption(&ppd, attribute.name + prefix.size()) != nullptr) return true;
  }
  return name == "NonUIOrderDependency" && attribute.value != nullptr &&
         std::string_view(attribute.value).find("*Custom") != std::string_view::npos;
}

// Whether it is a keyword in another language, such as de.PageSize.
bool isTranslation(std::string_view name) {
  return !tagOfLocale(name.substr(0, name.find('.'))).empty() &&
         name.find('.') != std::string_view::npos;
}

// Whether other parts of the import have read the keyword, or do without it: the
// fixed texts of a job, constraints, texts for users and their languages. What a
// resolver says is found from the rules themselves.
bool isReadElsewhere(std::string_view name) {
  constexpr std::array<std::string_view, 7> kNames = {
      "JCLBegin",         "JCLEnd",        "JCLToPSInterpreter", "LanguageVersion",
      "LanguageEncoding", "cupsLanguages", "cupsUIConstraints"};
  if (std::find(kNames.begin(), kNames.end(), name) != kNames.end()) return true;
  return name == "cupsUIResolver" || isTranslation(name);
}

}  // namespace

void noteKeywords(ppd_file_t& ppd, Losses& losses) {
  for (int i = 0; i < ppd.num_attrs; ++i) {
    const ppd_attr_t& attribute = *ppd.attrs[i];
    if (isReadElsewhere(attribute.name) || belongsToOption(ppd, attribute)) continue;
    losses.note(LossKind::kKeyword, std::string("*") + attribute.name);
  }
}

}  // namespace driver_feature::ppd

#include "host/ppd/import/translations.h"

#include <algorithm>
#include <utility>

#include "host/base/text.h"
#include "host/ppd/languages.h"
#include "host/ppd/plain/job_language.h"
#include "host/ppd/plain/ppd_statements.h"

namespace driver_feature::ppd {

namespace {

constexpr std::string_view kLineBlanks = " \t";

// Nothing in `text` when it is not a translation.
Translation translationOf(std::string_view keyword, std::string_view statement) {
  const std::size_t dot = keyword.find('.');
  if (dot != 2 && dot != 5) return {};
  Translation translation{tagOfLocale(keyword.substr(0, dot)), "", "", ""};
  if (translation.language.empty()) return {};
  statement.remove_prefix(keyword.size() + 1);
  const std::size_t colon = statement.find(':');
  const std::size_t slash = statement.find('/');
  if (colon == std::string_view::npos || slash > colon) return {};
  const std::string_view head = statement.substr(0, colon);
  translation.keyword = keyword.substr(dot + 1);
  translation.spec = host::trimmed(head.substr(0, slash), kLineBlanks);
  translation.text = decodedValue(head.substr(slash + 1));
  return translation;
}

}  // namespace

std::vector<Translation> translationsOf(std::string_view ppd) {
  std::vector<Translation> translations;
  while (!ppd.empty()) {
    const std::string_view statement = takeStatement(ppd);
    Translation translation = translationOf(statementKeyword(statement), statement);
    if (!translation.text.empty()) translations.push_back(std::move(translation));
  }
  return translations;
}

}  // namespace driver_feature::ppd

// What changes on a page: values, what can be chosen, records.
#ifndef HOST_PAGE_STATE_H_
#define HOST_PAGE_STATE_H_

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/secret_outputs.h"

namespace driver_feature::page {

using Json = nlohmann::json;

// The choices that rules take out, with the reasons, as "off" has them.
class RuledOut {
 public:
  // Asks the rules again only when the choices or the language have changed.
  const Json& of(host::RuleKeeper& keeper, const Catalog& catalog, const std::string& language);

 private:
  std::vector<rules::TakenOut> choices_;
  std::string language_;
  std::optional<Json> reasons_;
};

// The records of all dynamic groups, their columns alone.
std::vector<PageRecord> recordsOf(const host::Session& session, const Catalog& catalog);

// Finds the secrets of the present values, of `records` and of `tried` in texts.
host::SecretOutputs secretsOf(const Catalog& catalog, const std::vector<PageRecord>& records,
                              const std::vector<host::Setting>& tried);

// "values", "masked", "changed", "off", "hiddenChoices", "disabled", "hidden",
// "conflicts" and "records".
Json stateOf(const Catalog& catalog, const std::vector<PageRecord>& records,
             host::RuleKeeper& keeper, const Json& ruledOut);

// What `now` has that `before` has not, member by member; null for what has gone.
Json differenceOf(const Json& before, const Json& now);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_STATE_H_

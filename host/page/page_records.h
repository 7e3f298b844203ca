// Records of a page: added, changed, sorted and removed.
#ifndef HOST_PAGE_PAGE_RECORDS_H_
#define HOST_PAGE_PAGE_RECORDS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/page/catalog.h"
#include "host/page/command_line.h"
#include "host/session/session.h"

namespace driver_feature::page {

struct RecordsAction {
  std::string group;
  std::string action;  // "add", "change", "remove", "sort" or "clear".
  std::optional<std::size_t> index;
  // By column; nothing keeps what the record has there.
  std::vector<std::optional<std::string>> values;
};

// Carries out the action. Refused, in the words of `emit`, for a value, and for
// an unknown action.
host::Result<> carryOut(const host::Session& session, const Catalog& catalog,
                        const RecordsAction& action);

// Adds a record after the others, with the values of its columns in their order.
host::Result<> addPageRecord(const host::Session& session, const Catalog& catalog,
                             const PageRecord& record);

// The default value as a setting writes it; empty without one.
std::string defaultTextOf(const host::FeatureView& feature);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PAGE_RECORDS_H_

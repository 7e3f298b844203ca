// The three outputs, as they are and as a page shows them.
#ifndef HOST_PAGE_OUTPUTS_H_
#define HOST_PAGE_OUTPUTS_H_

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/page/catalog.h"
#include "host/page/notices.h"
#include "host/page/shown_text.h"
#include "host/session/output_form.h"
#include "host/session/session.h"

namespace driver_feature::page {

using Json = nlohmann::json;

struct Output {
  host::OutputForm form = host::OutputForm::kPostScript;
  const char* name = "";
  std::string text;
  std::string problem;           // Why `emit` would not write it; empty when it would.
  std::vector<OwnedPart> parts;  // As far as it is certain who has written them.
};

// Writes them; the notices receive what is logged meanwhile.
std::vector<Output> writeOutputs(host::Session& session, const Catalog& catalog, Notices& notices);

// {"text", "spans", "problem"}.
Json toJson(const Output& output, const host::SecretOutputs& secrets);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_OUTPUTS_H_

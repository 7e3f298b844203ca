#include "host/page/outputs.h"

#include "host/check/unformatted.h"
#include "host/page/output_owners.h"
#include "host/page/ticket_owners.h"
#include "host/session/routine_texts.h"

namespace driver_feature::page {

namespace {

using host::OutputForm;

Output writeOutput(host::Session& session, const Catalog& catalog, Notices& notices,
                   OutputForm form, const char* name) {
  Output output{form, name, "", "", {}};
  host::RoutineTexts routines;
  check::UnformattedCommands unformatted(session);
  unformatted.begin(form);
  {
    const host::LogWatch watch(session.log(), [&](int level, std::string_view line) {
      unformatted.take(line);
      notices.take(level, line);
    });
    output.text = outputOf(session.features(), form);
  }
  if (const host::Result<> whole = unformatted.result(); !whole) {
    output.problem = describe(whole.error());
    for (const host::Problem& problem : whole.error().more) {
      output.problem += "\n" + describe(problem);
    }
  }
  output.parts = form == OutputForm::kTicket
                     ? ticketOwners(session, catalog, output.text)
                     : textOwners(session, catalog, form, routines.calls(), output.text);
  return output;
}

}  // namespace

std::vector<Output> writeOutputs(host::Session& session, const Catalog& catalog, Notices& notices) {
  std::vector<Output> outputs;
  outputs.push_back(writeOutput(session, catalog, notices, OutputForm::kPostScript, "ps"));
  outputs.push_back(writeOutput(session, catalog, notices, OutputForm::kPjl, "pjl"));
  outputs.push_back(writeOutput(session, catalog, notices, OutputForm::kTicket, "ticket"));
  return outputs;
}

Json toJson(const Output& output, const host::SecretOutputs& secrets) {
  ShownOutput shownOutput = show(output.text, output.parts, secrets);
  Json spans = Json::array();
  for (const auto& [offset, length, owner] : shownOutput.spans) {
    spans.push_back({offset, length, shown(owner)});
  }
  Json json = {{"text", std::move(shownOutput.text)}, {"spans", std::move(spans)}};
  if (!output.problem.empty()) json["problem"] = shown(secrets.masked(output.problem));
  return json;
}

}  // namespace driver_feature::page

#include "programs/driver_feature/outputs.h"

#include "host/check/unformatted.h"

namespace driver_feature::cli {

host::Result<std::vector<std::string>> composeOutputs(host::Session& session,
                                                      const std::vector<OutputRequest>& requests) {
  std::vector<std::string> outputs;
  check::UnformattedCommands unformatted(session);
  const host::LogWatch watch(session.log(),
                             [&](int, std::string_view line) { unformatted.take(line); });
  for (const OutputRequest& request : requests) {
    unformatted.begin(request.form);
    outputs.emplace_back();
    session.features().serialize(outputs.back(), static_cast<int>(request.form),
                                 request.usesInstallableNames, request.argument1.c_str(),
                                 request.argument2.c_str());
  }
  if (host::Result<> whole = unformatted.result(); !whole) return failureOf(whole);
  return outputs;
}

}  // namespace driver_feature::cli

// "dump": the library's own listing of its model.

#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <utility>

#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/show/dump_text.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Examples:\n"
    "  driver-feature dump office.xml\n"
    "  driver-feature dump office.xml -o Duplex=LongEdge\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the listing\n"
    "not written, 2 wrong usage, an unusable file or a refused setting.";

constexpr std::array kRows = {kDescriptionRow, kShowSecretsRow};

host::Result<std::unique_ptr<host::Session>> open(const host::SessionRequest& request,
                                                  const host::Changes& changes) {
  const host::StandardOutputDiversion diversion;
  return openChanged(request, changes);
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const host::Changes changes = changesOf(arguments);
  auto session = open(sessionOf(arguments, general), changes);
  if (!session) return failureOf(session);
  host::Result<> saved = writeAllOutputs(outputsToSave(**session, changes));
  if (!saved) return failureOf(saved);
  if (!arguments.has("--show-secrets") && hasSecrets((*session)->model())) {
    auto text = maskedDump(**session);
    if (!text) return failureOf(text);
    return host::writeToStandardOutput(*text).map([] { return kSuccess; });
  }
  // The library prints through the C++ stream that this program shares.
  errno = 0;
  (*session)->features().dumpFeatureListValues();
  if (std::cout.good()) return kSuccess;
  return fail(host::Problem::Kind::kNotWritten, std::string("standard output cannot be written: ") +
                                                    std::strerror(errno != 0 ? errno : EIO));
}

}  // namespace

const CommandRow kDumpCommand = {
    "dump", "Print the library's whole model", kFooter, kRows, kChangeRows, &run, true};

}  // namespace driver_feature::cli

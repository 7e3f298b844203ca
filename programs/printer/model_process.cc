#include "programs/printer/model_process.h"

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "host/base/frames.h"
#include "host/base/standard_streams.h"
#include "host/ipp/capabilities.h"
#include "host/session/session.h"
#include "programs/common/console.h"
#include "programs/printer/queue_text.h"
#include "programs/printer/settings_verdict.h"

namespace driver_feature::printer {

namespace {

// Settings are made in a copy of this process: those of one job leave nothing to
// the next.
std::string verdictOn(const host::Session& session, const std::vector<host::Setting>& settings) {
  const auto texts = host::runInChild(host::ChildStreams::kDropped, [&] {
    return std::vector<std::string>{pack(judge(session, settings))};
  });
  return texts ? texts->front() : pack({describe(texts.error()), "", {}, {}});
}

int fail(int socket, const host::Problem& problem) {
  host::writeAll(socket, host::frame("-" + describe(problem)));
  return cli::kFailure;
}

}  // namespace

int runModelProcess(int socket, const std::string& name, const ppd::QueueRequest& request,
                    const Hardware& hardware) {
  const host::StandardOutputDiversion diversion;
  host::SessionRequest wanted;
  wanted.description = request.description;
  wanted.library = request.library;
  wanted.routines = request.routines;
  wanted.report = [&name](const std::string& line) { cli::printError(name + ": " + line); };
  wanted.loadSetting = host::applyLoadedSetting;
  const auto session = host::Session::open(wanted);
  if (!session) return fail(socket, session.error());
  (*session)->log().release();
  (*session)->offerNoAllowance();
  HardwareSession equipped(**session);
  std::vector<std::string> lines;
  if (const auto installed = equipped.install(hardware, lines); !installed) {
    return fail(socket, installed.error());
  }
  for (const std::string& line : lines) wanted.report(line);
  auto queue = queueText(**session, name, request);
  if (!queue) return fail(socket, queue.error());
  ipp::Capabilities capabilities =
      ipp::capabilitiesOf((*session)->model(), (*session)->additions());
  equipped.restrict(capabilities);
  const std::string json = toJson(capabilities);
  for (const host::Problem& problem : (*session)->additions().problems) {
    cli::printError(name + ": " + describe(problem));
  }
  if (!host::writeAll(socket, host::frame("+") + host::frame(json) + host::frame(*queue)))
    return cli::kFailure;
  std::string arrived;
  while (const auto text = host::nextFrame(socket, arrived)) {
    if (!host::writeAll(socket, host::frame(verdictOn(**session, unpackSettings(*text))))) break;
  }
  return cli::kSuccess;
}

}  // namespace driver_feature::printer

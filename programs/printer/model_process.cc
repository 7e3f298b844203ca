#include "programs/printer/model_process.h"

#include <unistd.h>

#include <array>
#include <cerrno>

#include "host/base/child_process.h"
#include "host/base/descriptor.h"
#include "host/base/standard_streams.h"
#include "host/ipp/capabilities.h"
#include "host/session/session.h"
#include "programs/common/console.h"
#include "host/base/frames.h"
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

// One more frame of the server; nothing when it has closed its end.
std::optional<std::string> nextFrame(int socket, std::string& arrived) {
  for (;;) {
    bool isMalformed = false;
    if (auto text = host::takeFrame(arrived, isMalformed)) return text;
    if (isMalformed) return std::nullopt;
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(socket, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    arrived.append(buffer.data(), static_cast<std::size_t>(count));
  }
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
  while (const auto text = nextFrame(socket, arrived)) {
    if (!host::writeAll(socket, host::frame(verdictOn(**session, unpackSettings(*text))))) break;
  }
  return cli::kSuccess;
}

}  // namespace driver_feature::printer

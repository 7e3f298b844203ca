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
#include "programs/printer/frames.h"
#include "programs/printer/queue_text.h"

namespace driver_feature::printer {

namespace {

// Settings are made in a copy of this process: those of one job leave nothing to
// the next.
std::string problemOf(const host::Model& model, const std::vector<host::Setting>& settings) {
  const auto texts = host::runInChild(host::ChildStreams::kDropped, [&] {
    std::vector<std::string> problems;
    for (const host::Setting& setting : settings) {
      // Names that are not features are options of the pages.
      if (!model.features.contains(setting.name)) continue;
      const auto applied = applySetting(model, setting);
      if (!applied) problems.push_back(describe(applied.error()));
    }
    return problems;
  });
  if (!texts) return describe(texts.error());
  return texts->empty() ? "" : texts->front();
}

// One more frame of the server; nothing when it has closed its end.
std::optional<std::string> nextFrame(int socket, std::string& arrived) {
  for (;;) {
    bool isMalformed = false;
    if (auto text = takeFrame(arrived, isMalformed)) return text;
    if (isMalformed) return std::nullopt;
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(socket, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    arrived.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

int fail(int socket, const host::Problem& problem) {
  host::writeAll(socket, frame("-" + describe(problem)));
  return cli::kFailure;
}

}  // namespace

std::string packSettings(const std::vector<host::Setting>& settings) {
  std::string text;
  for (const host::Setting& setting : settings) text += frame(setting.name) + frame(setting.value);
  return text;
}

std::vector<host::Setting> unpackSettings(std::string text) {
  std::vector<host::Setting> settings;
  bool isMalformed = false;
  while (!text.empty()) {
    auto name = takeFrame(text, isMalformed);
    auto value = takeFrame(text, isMalformed);
    if (!name || !value) break;
    settings.push_back({std::move(*name), std::move(*value)});
  }
  return settings;
}

int runModelProcess(int socket, const std::string& name, const ppd::QueueRequest& request) {
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
  const host::Model& model = (*session)->model();
  auto queue = queueText(**session, name, request);
  if (!queue) return fail(socket, queue.error());
  const std::string json = toJson(ipp::capabilitiesOf(model, (*session)->additions()));
  for (const host::Problem& problem : (*session)->additions().problems) {
    cli::printError(name + ": " + describe(problem));
  }
  if (!host::writeAll(socket, frame("+") + frame(json) + frame(*queue))) return cli::kFailure;
  std::string arrived;
  while (const auto text = nextFrame(socket, arrived)) {
    if (!host::writeAll(socket, frame(problemOf(model, unpackSettings(*text))))) break;
  }
  return cli::kSuccess;
}

}  // namespace driver_feature::printer

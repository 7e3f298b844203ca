#include "host/session/session.h"

#include <filesystem>
#include <utility>

#include "host/session/host_routines.h"
#include "host/session/load_watch.h"
#include "host/session/missing_routine.h"
#include "host/session/routine_calls.h"

namespace driver_feature::host {

namespace {

// The library reads the same attributes again and logs what is wrong.
DescriptionIndex indexSilently(void* description) {
  const LogSilence silence;
  return DescriptionIndex(description);
}

// As compilers write it.
Failure asError(Problem problem) {
  problem.text.insert(0, "error: ");
  return Failure(std::move(problem));
}

}  // namespace

Result<std::unique_ptr<Session>> Session::open(const SessionRequest& request) {
  Result<Document> document = Document::read(request.description);
  if (!document) return asError(std::move(document.error()));
  document->dropText();
  DescriptionIndex index = indexSilently(document->description());
  std::unique_ptr<Session> session(new Session(request, std::move(*document)));
  session->log_.hold();
  if (Result<> loaded = session->load(request); !loaded) return failureOf(loaded);
  session->model_ = std::make_unique<Model>(Model{featuresOf(session->features()), std::move(index),
                                                  request.description, &session->features()});
  session->takeLoadedSettings(request);
  return session;
}

Session::~Session() {
  setLoadTarget({});
}

const Additions& Session::additions(unsigned parts) const {
  const unsigned missing = parts & ~partsRead_;
  if (missing == 0) return additions_;
  partsRead_ |= missing;
  Additions read = readAdditions(document_, missing);
  if ((missing & kRulesPart) != 0) additions_.rules = std::move(read.rules);
  if ((missing & kTextsPart) != 0) additions_.texts = std::move(read.texts);
  if ((missing & kPresetsPart) != 0) additions_.presets = std::move(read.presets);
  if ((missing & kPanelsPart) != 0) additions_.panels = std::move(read.panels);
  if ((missing & kMediaPart) != 0) additions_.media = std::move(read.media);
  for (Problem& problem : read.problems) additions_.problems.push_back(std::move(problem));
  return additions_;
}

void Session::takeLoadedSettings(const SessionRequest& request) const {
  LoadTarget target{{}, request.report};
  if (request.loadSetting) {
    target.set = [set = request.loadSetting, this](const auto& name, const auto& value) {
      return set(*model_, name, value);
    };
  }
  setLoadTarget(std::move(target));
}

Result<> Session::load(const SessionRequest& request) {
  Result<Plugin> plugin = Plugin::load(request.library);
  if (!plugin) return failureOf(plugin);
  plugin_ = std::move(*plugin);
  for (const std::string& routines : request.routines) {
    if (Result<> loaded = loadRoutines(routines); !loaded) return loaded;
  }
  plugin_->setUpdateCallback(&DriverFeatureHostUpdate);
  if (Problems wrong = noteRoutines(); !wrong.empty()) return failureOfAll(std::move(wrong));
  if (buildFeatures(request)) return {};
  const std::string thrown = describeThrow(routineRecord());
  return fail(Problem::Kind::kNotLoaded, request.description +
                                             ": the description could not be loaded" +
                                             (thrown.empty() ? "" : ": " + thrown));
}

Problems Session::noteRoutines() const {
  const LogSilence silence;  // The library will read the same attributes.
  return noteRoutineCalls(document_.description(), document_.path());
}

bool Session::buildFeatures(const SessionRequest& request) {
  const LoadWatch watch(
      document_.path(), [this, &request] { return remedy(request); }, request.report);
  if (plugin_->handOver(document_.description()) != 1) return false;
  plugin_->completeCreation();
  return true;
}

// What the user can do about a failed load, if that is known.
std::string Session::remedy(const SessionRequest& request) const {
  if (log_.lastError() != kNoUpdateRoutine) return "";
  const LogSilence silence;  // The library has read the same attributes.
  const std::string routine = missingUpdateRoutine(document_.description());
  std::vector<std::filesystem::path> folders = {
      std::filesystem::path(request.description).parent_path()};
  const std::filesystem::path library = plugin_->path();
  if (library.has_parent_path()) folders.push_back(library.parent_path());
  return ": it names a routine \"" + routine + "\" that does not exist; " + request.advice + " " +
         libraryWithRoutine(routine, folders);
}

}  // namespace driver_feature::host

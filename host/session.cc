#include "host/session.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "host/console.h"
#include "host/host_routines.h"
#include "host/load_watch.h"
#include "host/missing_routine.h"

namespace driver_feature {

namespace {

// The library reads the same attributes again and logs what is wrong.
DescriptionIndex indexSilently(void* description) {
  const LogSilence silence;
  return DescriptionIndex(description);
}

bool fail(const std::string& problem, int result, int& status) {
  complain(problem);
  status = result;
  return false;
}

}  // namespace

std::unique_ptr<Session> Session::open(const SessionRequest& request, int& status) {
  std::string problem;
  auto file = DescriptionFile::read(request.description, problem);
  if (!file) {
    fail(problem, kUnusable, status);
    return nullptr;
  }
  DescriptionIndex index = indexSilently(file->element());
  std::unique_ptr<Session> session(new Session(request.detail));
  session->log_.hold();
  session->file_ = std::move(file);
  if (!session->load(request, status)) return nullptr;
  session->model_ = std::make_unique<Model>(Model{featuresOf(session->features()), std::move(index),
                                                  request.description, &session->features()});
  setLoadTarget(session->model_.get());
  return session;
}

Session::~Session() {
  setLoadTarget(nullptr);
}

bool Session::load(const SessionRequest& request, int& status) {
  std::string problem;
  plugin_ = Plugin::load(request.library, problem);
  if (!plugin_) return fail(problem, kFailure, status);
  for (const std::string& routines : request.routines) {
    if (!loadRoutines(routines, problem)) return fail(problem, kFailure, status);
  }
  plugin_->setUpdateCallback(&DriverFeatureHostUpdate);
  if (buildFeatures(request)) return true;
  return fail(request.description + ": the description could not be loaded", kFailure, status);
}

bool Session::buildFeatures(const SessionRequest& request) {
  const LoadWatch watch(file_->path(), [this, &request] { return remedy(request); });
  if (plugin_->handOver(file_->element()) != 1) return false;
  plugin_->completeCreation();
  return true;
}

// What the user can do about a load that has failed, as far as that is known.
std::string Session::remedy(const SessionRequest& request) const {
  if (log_.lastError() != kNoUpdateRoutine) return "";
  const LogSilence silence;  // The library has read the same attributes.
  const std::string routine = missingUpdateRoutine(file_->element());
  std::vector<std::filesystem::path> folders = {
      std::filesystem::path(request.description).parent_path()};
  const std::filesystem::path library = plugin_->path();
  if (library.has_parent_path()) folders.push_back(library.parent_path());
  return ": it names a routine \"" + routine + "\" that is not there; " + request.advice + " " +
         libraryWithRoutine(routine, folders);
}

}  // namespace driver_feature

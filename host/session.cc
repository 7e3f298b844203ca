#include "host/session.h"

#include <optional>
#include <utility>

#include "host/console.h"
#include "host/host_routines.h"
#include "host/load_watch.h"

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

bool buildFeatures(const Plugin& plugin, const DescriptionFile& file) {
  const LoadWatch watch(file.path());
  if (plugin.handOver(file.element()) != 1) return false;
  plugin.completeCreation();
  return true;
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
  if (buildFeatures(*plugin_, *file_)) return true;
  return fail(request.description + ": the description could not be loaded", kFailure, status);
}

}  // namespace driver_feature

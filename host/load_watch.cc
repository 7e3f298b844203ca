#include "host/load_watch.h"

#include <cstdlib>

#include "host/console.h"

namespace driver_feature {

namespace {

const std::string* watchedFile = nullptr;

}  // namespace

LoadWatch::LoadWatch(const std::string& file) : file_(file) {
  static const int kRegistered = std::atexit(&LoadWatch::report);
  static_cast<void>(kRegistered);
  watchedFile = &file_;
}

LoadWatch::~LoadWatch() {
  watchedFile = nullptr;
}

void LoadWatch::report() {
  // exit() leaves the objects of the functions that called it alive.
  if (watchedFile == nullptr) return;
  complain(*watchedFile + ": the description could not be loaded");
}

}  // namespace driver_feature

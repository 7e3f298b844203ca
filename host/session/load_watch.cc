#include "host/session/load_watch.h"

#include <cstdlib>

namespace driver_feature::host {

namespace {

const LoadWatch* watching = nullptr;

}  // namespace

LoadWatch::LoadWatch(std::string file, Remedy remedy, LineSink report)
    : file_(std::move(file)), remedy_(std::move(remedy)), report_(std::move(report)) {
  static const int kRegistered = std::atexit(&LoadWatch::reportEnd);
  static_cast<void>(kRegistered);
  watching = this;
}

LoadWatch::~LoadWatch() {
  watching = nullptr;
}

void LoadWatch::reportEnd() {
  // exit() leaves the objects of the functions that called it alive.
  if (watching == nullptr) return;
  watching->report_(watching->file_ + ": the description could not be loaded" +
                    watching->remedy_());
}

}  // namespace driver_feature::host

#include "host/load_watch.h"

#include <cstdlib>

#include "host/console.h"

namespace driver_feature {

namespace {

const LoadWatch* current = nullptr;

}  // namespace

LoadWatch::LoadWatch(std::string file, Remedy remedy)
    : file_(std::move(file)), remedy_(std::move(remedy)) {
  static const int kRegistered = std::atexit(&LoadWatch::report);
  static_cast<void>(kRegistered);
  current = this;
}

LoadWatch::~LoadWatch() {
  current = nullptr;
}

void LoadWatch::report() {
  // exit() leaves the objects of the functions that called it alive.
  if (current == nullptr) return;
  complain(current->file_ + ": the description could not be loaded" + current->remedy_());
}

}  // namespace driver_feature

#include "frame/state.h"

namespace driver_feature {

namespace {

constinit LibraryState state{};

}  // namespace

LibraryState& libraryState() {
  return state;
}

void callUpdateCallback() {
  if (state.updateCallback != nullptr) state.updateCallback();
}

void notifyUpdate(bool suppressUpdate) {
  if (!suppressUpdate && !state.ticketLoading) callUpdateCallback();
}

}  // namespace driver_feature

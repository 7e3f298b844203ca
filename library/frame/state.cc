#include "frame/state.h"

namespace driver_feature {

namespace {

constinit LibraryState state{};

}  // namespace

LibraryState& libraryState() {
  return state;
}

}  // namespace driver_feature

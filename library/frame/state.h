// The library-wide state of the frame: the master set, and what loads tickets.
//
// Plain data that is zero when the library is loaded and is never destroyed, so
// that a host may call the library until it has ended. There are no locks:
// a host calls from one thread.
#ifndef FRAME_STATE_H_
#define FRAME_STATE_H_

#include <type_traits>

class DriverFeatureSet;

namespace driver_feature {

using LoadCallback = int (*)(void* element, int mode);

struct LibraryState {
  DriverFeatureSet* masterSet;
  LoadCallback loadCallback;
};
static_assert(std::is_trivially_destructible_v<LibraryState>);

LibraryState& libraryState();

}  // namespace driver_feature

#endif  // FRAME_STATE_H_

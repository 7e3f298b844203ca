// The library-wide state: what the host or the loader has registered, and the
// switches between the stages of the library's life.
//
// All of it is plain data that is zero when the library is loaded and is never
// destroyed, so that a host may call in as late as it likes while it ends.
// There are no locks: a host calls from one thread.
#ifndef FRAME_STATE_H_
#define FRAME_STATE_H_

#include <type_traits>

class DriverFeatureSet;

namespace driver_feature {

using UpdateCallback = bool (*)();
using LoadCallback = int (*)(void* element, int mode);

struct LibraryState {
  DriverFeatureSet* masterSet;
  UpdateCallback updateCallback;
  LoadCallback loadCallback;
  bool ticketLoading;     // While a ticket handler runs the load callback.
  bool creationComplete;  // Set once, by SetFeatureCreationCompleteFlag().
};
static_assert(std::is_trivially_destructible_v<LibraryState>);

LibraryState& libraryState();

// Calls the host's update callback and ignores its result. A host that has
// registered none has nothing to be told: null is skipped.
void callUpdateCallback();

// Decides for the setters whether a change is reported to the host: not when
// the caller has asked for silence and not while a ticket is being loaded.
void notifyUpdate(bool suppressUpdate);

}  // namespace driver_feature

#endif  // FRAME_STATE_H_

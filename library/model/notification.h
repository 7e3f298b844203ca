// Who is notified when a value changes, and whether.
//
// All of it is plain data that is zero when the library is loaded and is never
// destroyed, so that a host may call in as late as it likes while it ends.
#ifndef MODEL_NOTIFICATION_H_
#define MODEL_NOTIFICATION_H_

#include <type_traits>

namespace driver_feature {

using UpdateCallback = bool (*)();
using ChangeRoutine = void (*)();

struct Notification {
  UpdateCallback updateCallback;  // The host's. Null: none is registered.
  bool ticketLoading;             // While a ticket handler runs the load callback.
  bool creationComplete;          // Set once, by SetFeatureCreationCompleteFlag().
};
static_assert(std::is_trivially_destructible_v<Notification>);

Notification& notification();

// Calls the host's update callback and ignores its result. Does nothing if none
// is registered.
void callUpdateCallback();

// Calls the update callback, unless the caller suppresses it or a ticket is
// being loaded.
void notifyUpdate(bool suppressUpdate);

// Reports a current value that has changed: first to the feature's own change
// routine, if it has one and the host has set the creation-complete flag, then as
// notifyUpdate() does.
void notifyChange(ChangeRoutine changeRoutine, bool suppressUpdate);

}  // namespace driver_feature

#endif  // MODEL_NOTIFICATION_H_

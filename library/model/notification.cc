#include "model/notification.h"

namespace driver_feature {

namespace {

constinit Notification state{};

}  // namespace

Notification& notification() {
  return state;
}

void callUpdateCallback() {
  if (state.updateCallback != nullptr) state.updateCallback();
}

void notifyUpdate(bool suppressUpdate) {
  if (!suppressUpdate && !state.ticketLoading) callUpdateCallback();
}

void notifyChange(ChangeRoutine changeRoutine, bool suppressUpdate) {
  if (changeRoutine != nullptr && state.creationComplete) changeRoutine();
  notifyUpdate(suppressUpdate);
}

}  // namespace driver_feature

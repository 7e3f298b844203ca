// The plug-in record and the library's entry points for its life cycle.

#include <iostream>

#include "frame/driver_feature_set.h"
#include "frame/exports.h"
#include "frame/state.h"
#include "model/notification.h"

// A constant has internal linkage unless it is declared extern, as the header
// does.
extern "C" {
const char* const _KirvoSOVersion = "v1.0";
const char* const _KirvoSODisplayName = "Driver Feature Library";
const char* const _KirvoNDTagHandlerFunction = "FeatureXMLTagHandler";
}

namespace {

using driver_feature::libraryState;
using driver_feature::notification;

// What the custom load routine must load.
enum LoadMode : int { kJobTicket = 0, kInstallableOptions = 1 };

// Raises the ticket-loading flag, and lowers it again also when the host's
// routine throws.
class TicketLoading {
 public:
  TicketLoading() { set(true); }
  ~TicketLoading() { set(false); }
  TicketLoading(const TicketLoading&) = delete;
  TicketLoading& operator=(const TicketLoading&) = delete;

 private:
  static void set(bool loading) { notification().ticketLoading = loading; }
};

}  // namespace

void* GetMasterFeatureList() {
  DriverFeatureSet*& set = libraryState().masterSet;
  if (set == nullptr) set = new DriverFeatureSet;
  return static_cast<CoreFeatureSet*>(set);
}

void SetFeatureCreationCompleteFlag() {
  notification().creationComplete = true;
}

void setDriverFeatureUpdateCallback(bool (*callback)()) {
  notification().updateCallback = callback;
}

int InstOptVORNTagHandler(void* element) try {
  if (libraryState().loadCallback == nullptr) return 1;
  // Required: the flag is up until the text is written.
  const TicketLoading loading;
  if (libraryState().loadCallback(element, kInstallableOptions) != 0) {
    // Required: to standard output, and not to the log.
    std::cout << "Queue Defaults Load Error" << std::endl;
  }
  return 1;
} catch (...) {
  return 0;
}

int JobTicketVORNTagHandler(void* element) try {
  if (libraryState().loadCallback == nullptr) return 1;
  {
    const TicketLoading loading;
    libraryState().loadCallback(element, kJobTicket);
  }
  driver_feature::callUpdateCallback();
  return 1;
} catch (...) {
  return 0;
}

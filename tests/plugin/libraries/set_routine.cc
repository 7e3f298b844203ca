// A routine that calls the plug-in. Built twice: linked with the plug-in, and
// not.

#include "frame/exports.h"

extern "C" DRIVER_FEATURE_EXPORT void* SetThatTheRoutineSees() {
  return GetMasterFeatureList();
}

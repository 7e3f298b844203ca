// For test programs that define the platform's look-up of names themselves, in
// front of the platform's own: the way to the latter.
#ifndef TESTS_SUPPORT_PLATFORM_LOOK_UP_H_
#define TESTS_SUPPORT_PLATFORM_LOOK_UP_H_

#include <dlfcn.h>

#include <cstdlib>

namespace driver_feature::testing {

// What the platform returns. Ends the program when there is no platform.
inline int askPlatform(const char* const* names, int highestIndex, const char* name) {
  using LookUp = int (*)(const char* const*, int, const char*);
  static const auto kLookUp =
      reinterpret_cast<LookUp>(dlsym(RTLD_NEXT, "ParseAttributeList_LowLevel"));
  if (kLookUp == nullptr) std::abort();
  return kLookUp(names, highestIndex, name);
}

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_PLATFORM_LOOK_UP_H_

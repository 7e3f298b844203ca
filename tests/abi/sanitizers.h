// Whether this build has checks at run time, which change what the library
// takes from the run-time system.
#ifndef TESTS_ABI_SANITIZERS_H_
#define TESTS_ABI_SANITIZERS_H_

#include "../support/address_checks.h"

namespace driver_feature::testing {

#if defined(ADDRESSES_ARE_CHECKED)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

inline constexpr const char* kWhySkipped =
    "the checks at run time of this build add names and libraries of their own";

}  // namespace driver_feature::testing

#endif  // TESTS_ABI_SANITIZERS_H_

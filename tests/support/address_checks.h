// Defines ADDRESSES_ARE_CHECKED in a build that checks addresses at run time,
// which GCC and clang each show in their own way.
#ifndef TESTS_SUPPORT_ADDRESS_CHECKS_H_
#define TESTS_SUPPORT_ADDRESS_CHECKS_H_

#if defined(__SANITIZE_ADDRESS__)
#define ADDRESSES_ARE_CHECKED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ADDRESSES_ARE_CHECKED
#endif
#endif

#endif  // TESTS_SUPPORT_ADDRESS_CHECKS_H_

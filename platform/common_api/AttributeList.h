// Look-up of a name in a sorted array of names.
#ifndef PLATFORM_COMMON_API_ATTRIBUTE_LIST_H_
#define PLATFORM_COMMON_API_ATTRIBUTE_LIST_H_

// The index of the exact match in `names`, which holds `highestIndex` + 1
// names in ascending byte order, or -1.
extern "C" int ParseAttributeList_LowLevel(const char* const* names, int highestIndex,
                                           const char* name);

#endif  // PLATFORM_COMMON_API_ATTRIBUTE_LIST_H_

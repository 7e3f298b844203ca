// Look-up of host routines by name.
#ifndef PLATFORM_COMMON_API_SYMBOLS_H_
#define PLATFORM_COMMON_API_SYMBOLS_H_

// The address of a routine of the host process, or of a library that it has
// loaded globally; null if none has that name.
extern "C" void* FetchSymbol(const char* name);

#endif  // PLATFORM_COMMON_API_SYMBOLS_H_

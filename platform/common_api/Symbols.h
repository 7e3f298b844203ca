// Look-up of host routines by name.
#ifndef PLATFORM_COMMON_API_SYMBOLS_H_
#define PLATFORM_COMMON_API_SYMBOLS_H_

// The address of a routine of the host process, or of a library that it has
// loaded globally; null if none has that name.
extern "C" void* FetchSymbol(const char* name);

// For host programs and tests of the development edition only: from now on
// FetchSymbol() returns what `handler` makes of each name and the address that
// was found, which is not null. A null handler restores the address itself.
void SetSymbolHandler(void* (*handler)(const char* name, void* address));

#endif  // PLATFORM_COMMON_API_SYMBOLS_H_

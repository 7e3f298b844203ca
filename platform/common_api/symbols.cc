#include "Symbols.h"

#include <dlfcn.h>

void* FetchSymbol(const char* name) {
  return name != nullptr ? dlsym(RTLD_DEFAULT, name) : nullptr;
}

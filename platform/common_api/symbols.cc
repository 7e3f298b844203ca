#include "Symbols.h"

#include <dlfcn.h>

void* FetchSymbol(const char* name) {
  if (name == nullptr || *name == '\0') return nullptr;
  return dlsym(RTLD_DEFAULT, name);
}

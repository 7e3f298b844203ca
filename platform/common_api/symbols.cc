#include "Symbols.h"

#include <dlfcn.h>

namespace {

void* (*symbolHandler)(const char* name, void* address) = nullptr;

}  // namespace

void* FetchSymbol(const char* name) {
  void* address = name != nullptr ? dlsym(RTLD_DEFAULT, name) : nullptr;
  if (address == nullptr || symbolHandler == nullptr) return address;
  return symbolHandler(name, address);
}

void SetSymbolHandler(void* (*handler)(const char* name, void* address)) {
  symbolHandler = handler;
}

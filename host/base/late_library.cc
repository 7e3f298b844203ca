#include "host/base/late_library.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace driver_feature::host {

void* LateLibrary::find(const char* name) const {
  void* library = ::dlopen(file_, RTLD_NOW | RTLD_LOCAL);
  void* address = library != nullptr ? ::dlsym(library, name) : nullptr;
  if (address != nullptr) return address;
  const char* reason = ::dlerror();
  throw std::runtime_error(std::string(file_) +
                           " cannot be loaded: " + (reason != nullptr ? reason : "unknown error") +
                           "; install the package " + package_);
}

}  // namespace driver_feature::host

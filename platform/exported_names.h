// For tests: the dynamic symbols of a library.
#ifndef PLATFORM_EXPORTED_NAMES_H_
#define PLATFORM_EXPORTED_NAMES_H_

#include <dlfcn.h>

#include <string>
#include <vector>

namespace driver_feature::testing {

// Those of `names` that the loaded library at `path` does not export itself,
// or all of them when it is not loaded. In a name, '@' means the mangled
// std::string and '#' the mangled std::size_t.
inline std::vector<std::string> missingExports(const char* path,
                                               const std::vector<std::string>& names) {
  void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  std::vector<std::string> missing;
  for (const std::string& name : names) {
    std::string symbol;
    for (const char c : name) {
      if (c == '@') {
        symbol += "NSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";
      } else if (c == '#') {
        symbol += sizeof(std::size_t) == sizeof(unsigned int) ? 'j' : 'm';
      } else {
        symbol += c;
      }
    }
    Dl_info place{};
    void* address = library != nullptr ? dlsym(library, symbol.c_str()) : nullptr;
    // dlsym() also looks in the libraries that this one needs.
    if (address == nullptr || dladdr(address, &place) == 0 ||
        std::string(place.dli_fname).substr(std::string(place.dli_fname).rfind('/') + 1) !=
            std::string(path).substr(std::string(path).rfind('/') + 1)) {
      missing.push_back(symbol);
    }
  }
  if (library != nullptr) dlclose(library);
  return missing;
}

}  // namespace driver_feature::testing

#endif  // PLATFORM_EXPORTED_NAMES_H_

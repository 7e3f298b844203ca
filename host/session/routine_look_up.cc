#include "host/session/routine_look_up.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>

#include "host/session/exported_symbols.h"

namespace driver_feature::host {

namespace {

// The libraries that have been opened for their routines.
std::vector<const link_map*>& routineLibraries() {
  static auto* const kLibraries = new std::vector<const link_map*>;  // Outlives exit handlers.
  return *kLibraries;
}

// They, and what was loaded for them: a routine may be in a library that the
// given one needs.
std::set<const link_map*>& ownLibraries() {
  static auto* const kLibraries = new std::set<const link_map*>;
  return *kLibraries;
}

const link_map* mapOf(void* library) {
  link_map* map = nullptr;
  return ::dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 ? map : nullptr;
}

std::set<const link_map*> loadedLibraries() {
  std::set<const link_map*> libraries;
  void* program = ::dlopen(nullptr, RTLD_NOW);
  for (const link_map* map = mapOf(program); map != nullptr; map = map->l_next) {
    libraries.insert(map);
  }
  ::dlclose(program);
  return libraries;
}

std::string demangled(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(
      abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
  return text ? text.get() : symbol;
}

}  // namespace

RoutineLookUp lookUpRoutine(const std::string& name) {
  void* address = ::dlsym(RTLD_DEFAULT, name.c_str());
  if (address == nullptr) return {};
  Dl_info place{};
  void* extra = nullptr;
  if (::dladdr1(address, &place, &extra, RTLD_DL_LINKMAP) == 0) return {RoutineKind::kForeign, ""};
  const auto* map = static_cast<const link_map*>(extra);
  // The program comes first in the list, with an empty name.
  const bool isOfProgram = map == nullptr || map->l_prev == nullptr;
  RoutineLookUp routine{RoutineKind::kRoutine,
                        isOfProgram ? "" : std::filesystem::path(place.dli_fname).filename(),
                        isOfProgram};
  if (!isOfProgram && !ownLibraries().contains(map)) routine.kind = RoutineKind::kForeign;
  ::dladdr1(address, &place, &extra, RTLD_DL_SYMENT);
  const auto* symbol = static_cast<const ElfW(Sym)*>(extra);
  if (symbol == nullptr) return routine;
  const auto type = ELF64_ST_TYPE(symbol->st_info);  // The same for both classes.
  const bool isData = type == STT_OBJECT || type == STT_COMMON || type == STT_TLS;
  if (isData) routine.kind = RoutineKind::kData;
  return routine;
}

std::string objectionTo(const RoutineLookUp& routine) {
  const std::string owner = routine.isOfProgram ? "the program" : routine.library;
  switch (routine.kind) {
    case RoutineKind::kForeign:
      return "is a function of " + owner + ", not a routine for a description";
    case RoutineKind::kData:
      return "is a variable of " + owner + ", not a routine";
    default:
      return "";
  }
}

void* openRoutines(const std::string& path) {
  const std::set<const link_map*> before = loadedLibraries();
  void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) return nullptr;
  for (const link_map* map : loadedLibraries()) {
    if (!before.contains(map)) ownLibraries().insert(map);
  }
  const link_map* map = mapOf(library);
  auto& libraries = routineLibraries();
  const bool isNew = std::find(libraries.begin(), libraries.end(), map) == libraries.end();
  if (map != nullptr && isNew) libraries.push_back(map);
  if (map != nullptr) ownLibraries().insert(map);
  return library;
}

std::vector<std::string> routineNames() {
  std::set<std::string> names = {"DriverFeatureHostUpdate", "DriverFeatureHostLoad"};
  for (const link_map* library : routineLibraries()) {
    for (const std::string& name : exportedFunctions(*library)) {
      const bool isPlain = !name.starts_with("_");  // Not those of compiler and linker.
      if (isPlain && lookUpRoutine(name).kind == RoutineKind::kRoutine) names.insert(name);
    }
  }
  return {names.begin(), names.end()};
}

std::optional<std::string> mangledRoutine(const std::string& name) {
  if (name.empty()) return std::nullopt;
  const std::string part = std::to_string(name.size()) + name;
  for (const link_map* library : routineLibraries()) {
    for (const std::string& symbol : exportedFunctions(*library)) {
      if (!symbol.starts_with("_Z") || symbol.find(part) == std::string::npos) continue;
      const std::string declaration = demangled(symbol);
      const std::string function = declaration.substr(0, declaration.find('('));
      if (function == name || function.ends_with("::" + name)) return function;
    }
  }
  return std::nullopt;
}

}  // namespace driver_feature::host

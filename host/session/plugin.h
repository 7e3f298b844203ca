// The feature library, loaded as a plug-in: through its exported record, and
// without linking to it.
#ifndef HOST_SESSION_PLUGIN_H_
#define HOST_SESSION_PLUGIN_H_

#include <string>

#include "host/base/result.h"

class AttributeMap;
class CoreFeatureSet;

namespace driver_feature::host {

class Plugin {
 public:
  // Loads the library from `path` or, when that is empty, from the first of
  // these places that has it: the library folders beside the program's
  // folder, the program's folder, and wherever the system's loader looks.
  // Problem: kNotLoaded when there is none or when it is not such a plug-in.
  // The library stays loaded until the process ends, and routines that are
  // loaded later may call what it exports.
  static Result<Plugin> load(const std::string& path);

  const std::string& path() const { return path_; }  // As given to the loader.
  const char* version() const { return version_; }
  const char* displayName() const { return displayName_; }

  // Passes the feature-description element to the library. Returns what the
  // library's handler returns, 1 for success; a description that the library
  // cannot build ends the process with status 1 from inside.
  int handOver(void* description) const { return handler_(description); }

  // Reports to the library that the description is loaded.
  void completeCreation() const { completeCreation_(); }

  // Registers the routine that the library calls after a change.
  void setUpdateCallback(bool (*callback)()) const { setUpdateCallback_(callback); }

  // Lets the library copy the current values of the named features into their
  // original values, and back.
  void save(AttributeMap& names) const { save_(names); }
  void restore(AttributeMap& names) const { restore_(names); }

  // The features. The set lives as long as the process.
  CoreFeatureSet& features() const;

  // The address of an exported routine or record, or null.
  void* find(const std::string& symbol) const;

 private:
  Plugin(void* library, const std::string& path) : library_(library), path_(path) {}
  Result<> bind();
  Result<> bindRecord();
  Result<> bindText(const std::string& symbol, const char*& text) const;
  template <class Pointer>
  Result<> bindSymbol(const std::string& symbol, Pointer& pointer) const;

  void* library_;
  std::string path_;
  const char* version_ = nullptr;
  const char* displayName_ = nullptr;
  int (*handler_)(void*) = nullptr;
  void* (*getFeatures_)() = nullptr;
  void (*completeCreation_)() = nullptr;
  void (*setUpdateCallback_)(bool (*)()) = nullptr;
  void (*save_)(AttributeMap&) = nullptr;
  void (*restore_)(AttributeMap&) = nullptr;
};

// Loads a library of routines that a description names, so that they are
// found by their names. Problem: kNotLoaded. The library stays loaded until
// the process ends. Routines that call the plug-in's exported functions are
// loaded after it.
Result<> loadRoutines(const std::string& path);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_PLUGIN_H_

// A loaded description: what every command works on.
#ifndef HOST_SESSION_H_
#define HOST_SESSION_H_

#include <memory>
#include <string>
#include <vector>

#include "host/description_file.h"
#include "host/log_printer.h"
#include "host/plugin.h"
#include "host/settings.h"

namespace driver_feature {

// Where the parts of a session come from.
struct SessionRequest {
  std::string description;            // The file.
  std::string library;                // The feature library; empty to search it.
  std::vector<std::string> routines;  // Libraries of routines that the description names.
  LogDetail detail = LogDetail::kUsual;
  // How to load a library of routines that is missing; its name follows.
  std::string advice = "load the library that has it with --callbacks";
};

class Session {
 public:
  // Reads the description, loads the libraries and builds the features. Null
  // when that fails, after a line on standard error; `status` is then the
  // program's exit status. A description that the feature library cannot
  // build ends the process with status 1. One session per process, because
  // the library keeps one set of features.
  static std::unique_ptr<Session> open(const SessionRequest& request, int& status);

  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Holds its lines back from the beginning of the load; whoever knows that
  // the command goes on releases them.
  LogPrinter& log() { return log_; }

  const Model& model() const { return *model_; }

  // From now on takes values that can end the command they are written into.
  void allowControlCharacters() { model_->allowsControlCharacters = true; }

  // From now on messages offer no way to have such values taken.
  void offerNoAllowance() { model_->allowance.clear(); }

  CoreFeatureSet& features() const { return plugin_->features(); }
  void* description() const { return file_->element(); }  // The feature-description element.

  // Registers the routine that the library calls after a change.
  void setUpdateCallback(bool (*callback)()) const { plugin_->setUpdateCallback(callback); }

  // Save the current values of the named features, and restore them.
  void save(AttributeMap& names) const { plugin_->save(names); }
  void restore(AttributeMap& names) const { plugin_->restore(names); }

 private:
  explicit Session(LogDetail detail) : log_(detail) {}
  bool load(const SessionRequest& request, int& status);
  bool buildFeatures(const SessionRequest& request);
  std::string remedy(const SessionRequest& request) const;

  LogPrinter log_;
  std::unique_ptr<DescriptionFile> file_;
  std::unique_ptr<Plugin> plugin_;
  std::unique_ptr<Model> model_;
};

}  // namespace driver_feature

#endif  // HOST_SESSION_H_

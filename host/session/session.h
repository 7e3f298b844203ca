// A loaded description: what every command works on.
#ifndef HOST_SESSION_SESSION_H_
#define HOST_SESSION_SESSION_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/description/additions.h"
#include "host/description/document.h"
#include "host/session/log.h"
#include "host/session/model.h"
#include "host/session/plugin.h"

namespace driver_feature::host {

// Where the parts of a session come from.
struct SessionRequest {
  std::string description;            // The file.
  std::string library;                // The feature library; empty to search it.
  std::vector<std::string> routines;  // Libraries of routines that the description names.
  LogDetail detail = LogDetail::kUsual;
  // How to load a library of routines that is missing; its name follows.
  std::string advice = "load the library that has it with --callbacks";
  // Receives the lines for people while the session lives: the log, and what
  // the load routine refuses.
  LineSink report = [](const std::string&) {};
  // How the load routine sets a feature; without it, every setting is refused.
  std::function<Result<>(const Model& model, const std::string& name, const std::string& value)>
      loadSetting;
};

class Session {
 public:
  // Reads the description, loads the libraries and builds the features. A
  // description that the feature library cannot build ends the process with
  // status 1, after a line is reported. One session per process, because the
  // library keeps one set of features. Problems: those of Document::read() and
  // Plugin::load(), and kNotLoaded when the library does not load the
  // description.
  static Result<std::unique_ptr<Session>> open(const SessionRequest& request);

  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Holds back its lines from the beginning of the load; the caller releases
  // them once the command continues.
  LogPrinter& log() { return log_; }

  const Model& model() const { return *model_; }

  // Reports a line for people, unless the request asks for errors only.
  void note(const std::string& line) const {
    if (log_.detail() != LogDetail::kErrors) report_(line);
  }

  // From now on accepts values that can end the command they are written into.
  void allowControlCharacters() { model_->allowsControlCharacters = true; }

  // From now on messages do not say how to allow such values.
  void offerNoAllowance() { model_->allowance.clear(); }

  CoreFeatureSet& features() const { return plugin_->features(); }
  void* description() const { return document_.description(); }  // The feature-description element.

  // What the description has beside its features. The parts that are asked for are
  // read at the first call that names them; the others may be there or not.
  const Additions& additions(unsigned parts = kAllParts) const;

  // Registers the routine that the library calls after a change.
  void setUpdateCallback(bool (*callback)()) const { plugin_->setUpdateCallback(callback); }

  // Save the current values of the named features, and restore them.
  void save(AttributeMap& names) const { plugin_->save(names); }
  void restore(AttributeMap& names) const { plugin_->restore(names); }

 private:
  Session(const SessionRequest& request, Document document)
      : log_(request.detail, request.report),
        report_(request.report),
        document_(std::move(document)) {}
  Result<> load(const SessionRequest& request);
  void takeLoadedSettings(const SessionRequest& request) const;
  Problems noteRoutines() const;
  bool buildFeatures(const SessionRequest& request);
  std::string remedy(const SessionRequest& request) const;

  LogPrinter log_;
  LineSink report_;
  Document document_;
  std::optional<Plugin> plugin_;
  std::unique_ptr<Model> model_;
  mutable Additions additions_;
  mutable unsigned partsRead_ = 0;  // Of the additions.
};

}  // namespace driver_feature::host

#endif  // HOST_SESSION_SESSION_H_

// The features and groups for the fuzzer's settings files and records: every
// kind of value, a routine that makes others unavailable, and groups with and
// without an order.
#ifndef FUZZ_SETTINGS_MODEL_H_
#define FUZZ_SETTINGS_MODEL_H_

#include <memory>
#include <string>

#include "host/settings/setting.h"
#include "model/core_feature_set.h"

namespace driver_feature::fuzz {

// A freshly loaded model; one at a time.
class SettingsModel {
 public:
  SettingsModel();
  ~SettingsModel();
  SettingsModel(const SettingsModel&) = delete;
  SettingsModel& operator=(const SettingsModel&) = delete;

  CoreFeatureSet& set() const;
  const host::Model& model() const { return *model_; }

  // Everything that a setting may change: values, records and what is
  // available, and how often the host was notified of a change.
  std::string state() const;

 private:
  std::unique_ptr<host::Model> model_;
};

// A file in memory that holds a text; readers open it by its path.
class MemoryFile {
 public:
  explicit MemoryFile(const std::string& text);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const;

 private:
  int descriptor_;
};

// Ends the program with a message when the condition does not hold.
void require(bool holds, const std::string& what);

}  // namespace driver_feature::fuzz

#endif  // FUZZ_SETTINGS_MODEL_H_

// An imported description in the feature library: what is compared with
// libcups.
#ifndef EQUIVALENCE_SUBJECT_H_
#define EQUIVALENCE_SUBJECT_H_

#include <memory>
#include <string>

#include "equivalence/ppd_text.h"
#include "host/session/session.h"

namespace driver_feature::equivalence {

class Subject {
 public:
  // Loads the description, once per process. A description that the library
  // cannot build ends the process.
  static host::Result<std::unique_ptr<Subject>> load(const host::SessionRequest& request);

  // Stores all values. Fails at the first one that has no feature or that its
  // feature refuses.
  host::Result<> set(const FeatureValues& settings) const;

  void restoreDefaults() const { session_->features().restoreDefaultFeatureValues(); }

  std::string postScript() const { return serialized(1); }
  std::string pjl() const { return serialized(0); }

  // The code that belongs after the job; empty without a feature "JCLEnd".
  std::string jclEnd() const;

 private:
  explicit Subject(std::unique_ptr<host::Session> session) : session_(std::move(session)) {}
  std::string serialized(int form) const;

  std::unique_ptr<host::Session> session_;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_SUBJECT_H_

// Commands that the library leaves out of an output because it cannot format
// them: it only logs that, and an output without them is not what the user
// has asked for.
#ifndef PROGRAMS_DRIVER_FEATURE_UNFORMATTED_H_
#define PROGRAMS_DRIVER_FEATURE_UNFORMATTED_H_

#include <string>
#include <string_view>

#include "host/base/result.h"
#include "host/session/output_form.h"
#include "host/session/session.h"

namespace driver_feature::cli {

// Watches the session's log while it lives.
class UnformattedCommands {
 public:
  explicit UnformattedCommands(host::Session& session);
  ~UnformattedCommands();
  UnformattedCommands(const UnformattedCommands&) = delete;
  UnformattedCommands& operator=(const UnformattedCommands&) = delete;

  // To be called before each output is written.
  void begin(host::OutputForm form) { form_ = form; }

  // A problem (kNotWritten) for each feature and group whose command was left
  // out, with the command; success when none was.
  host::Result<> result() const;

 private:
  void take(std::string_view line);
  void add(const std::string& owner, int line, const std::string& command);
  void addFeatures(const std::string& property, const std::string& command);
  void addGroups(const std::string& property, const std::string& command);
  void addValueless(const std::string& property);

  host::Session& session_;
  host::OutputForm form_ = host::OutputForm::kPostScript;
  host::Problems problems_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_UNFORMATTED_H_

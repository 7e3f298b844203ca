// Commands that the library leaves out of an output because it cannot format
// them: it only logs that, and an output without them is not what the user
// has asked for.
#ifndef HOST_CHECK_UNFORMATTED_H_
#define HOST_CHECK_UNFORMATTED_H_

#include <string>
#include <string_view>

#include "host/base/result.h"
#include "host/session/output_form.h"
#include "host/session/session.h"

namespace driver_feature::check {

class UnformattedCommands {
 public:
  // The session must outlive this object.
  explicit UnformattedCommands(const host::Session& session) : session_(session) {}

  // To be called before each output is written.
  void begin(host::OutputForm form) { form_ = form; }

  // To be called with each line of the log meanwhile.
  void take(std::string_view line);

  // A problem (kNotWritten) for each feature and group whose command was left
  // out, with the command; success when none was.
  host::Result<> result() const;

 private:
  void add(const std::string& owner, int line, const std::string& command);
  void addFeatures(const std::string& property, const std::string& command);
  void addGroups(const std::string& property, const std::string& command);
  void addValueless(const std::string& property);

  const host::Session& session_;
  host::OutputForm form_ = host::OutputForm::kPostScript;
  host::Problems problems_;
};

}  // namespace driver_feature::check

#endif  // HOST_CHECK_UNFORMATTED_H_

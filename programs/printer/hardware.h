// What is built into a printer: given once, and kept beside the jobs.
#ifndef PROGRAMS_PRINTER_HARDWARE_H_
#define PROGRAMS_PRINTER_HARDWARE_H_

#include <filesystem>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/ipp/capabilities.h"
#include "host/session/session.h"
#include "host/settings/setting.h"

namespace driver_feature::printer {

struct Hardware {
  std::vector<host::Setting> kept;   // Given to an earlier server.
  std::vector<host::Setting> given;  // Given to this one; they come after the others.
};

// What is kept for a printer, in the form of a settings file. Nothing without a file.
std::vector<host::Setting> readHardware(const std::filesystem::path& file);

// Keeps all of it; what has an empty value is forgotten. Problem: kNotWritten.
host::Result<> writeHardware(const std::filesystem::path& file, const Hardware& hardware);

// A session whose model has the hardware. Choices that are impossible with it are not
// available, and no default value is one of them.
class HardwareSession final {
 public:
  // Notes what is available without the hardware. The session must outlive this object.
  explicit HardwareSession(const host::Session& session);

  // Refused when something that is given is not hardware or has no such choice.
  // What is kept and no longer fits is left out: the description may have changed
  // since. Lines for the log are added to `lines`.
  host::Result<> install(const Hardware& hardware, std::vector<std::string>& lines);

  // Leaves out what the hardware does not allow: choices, features, and presets that
  // need them. The capabilities are those of the session after install().
  void restrict(ipp::Capabilities& capabilities) const;

 private:
  host::Result<> set(const host::Setting& setting) const;
  bool isTakenOut(const std::string& feature, const std::string& choice) const;

  const host::Session& session_;
  std::vector<std::string> lists_;                            // That say what is built in.
  std::vector<std::string> features_;                         // Available without hardware.
  std::vector<std::pair<std::string, std::string>> choices_;  // Sorted.
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_HARDWARE_H_

// What the program is asked to do.
#ifndef PROGRAMS_PRINTER_ARGUMENTS_H_
#define PROGRAMS_PRINTER_ARGUMENTS_H_

#include <optional>
#include <string>
#include <vector>

#include "host/base/result.h"
#include "host/server/limits.h"
#include "host/settings/setting.h"
#include "programs/printer/job_list.h"

namespace driver_feature::printer {

struct PrinterArgument {
  std::string name;
  std::string description;                   // The file, with its absolute path.
  std::vector<host::Setting> hardware = {};  // What is built in.
};

// Whether clients can, or must, encrypt what they send.
enum class TlsUse {
  kAsReachable,  // Offered unless the server can be reached from this machine only.
  kNever,
  kOffered,
  kRequired,
};

struct ServiceArguments {
  TlsUse tls = TlsUse::kAsReachable;
  std::string certificate;  // PEM files; empty: one of the printer's own.
  std::string key;
  std::vector<std::string> places;  // At which to listen.
  std::vector<std::string> hosts;   // More names by which clients may call the server.
  bool isAnnounced = true;          // Where other machines can reach the server.
  std::string spool;
  std::string device;
  std::string library;                // Empty for the installed one.
  std::vector<std::string> routines;  // With absolute paths.
  std::string filter;                 // The program driver-feature-filter.
  std::vector<PrinterArgument> printers;
  host::Limits limits;
  JobLimits jobLimits;
};

// Reads the words of the command line. `arguments` is empty when `text` must be
// printed instead, for --help and --version. Refused when they cannot be
// understood.
struct Line {
  std::optional<ServiceArguments> arguments;
  std::string text;
};
host::Result<Line> readLine(int argc, const char* const* argv);

// Whether a printer may have this name: it becomes part of addresses and of names
// of files.
bool isPrinterName(const std::string& name);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_ARGUMENTS_H_

// The only source of the program that knows the library which reads command lines.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "host/base/text.h"
#include "programs/common/parsed_words.h"
#include "programs/printer/arguments.h"
#include "programs/printer/device.h"

namespace driver_feature::printer {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFooter =
    "Each description becomes a printer at ipp://HOST:PORT/ipp/print/NAME.\n"
    "\n"
    "Examples:\n"
    "  driver-feature-printer --device socket://printer.example office=office_laser.xml\n"
    "  lpadmin -p office -E -v ipp://localhost:8631/ipp/print/office -m everywhere\n"
    "\n"
    "Exit status: 0 after SIGTERM or SIGINT, 1 no printer could be created or the\n"
    "server not started, 2 wrong usage.";

struct Words {
  std::vector<std::string> listen, hosts, callbacks, printers, hardware;
  std::string spool, device, library, tls, certificate, key;
  unsigned connections = 100;
  unsigned keep = 100;
  bool isSilent = false;
};

void addOptions(CLI::App& app, Words& words) {
  const auto repeats = [](CLI::Option* option, const char* type) {
    option->type_name(type)->allow_extra_args(false);
  };
  repeats(app.add_option("--listen", words.listen,
                         "Listen here; by default 127.0.0.1:8631. May be repeated"),
          "ADDRESS:PORT");
  repeats(app.add_option("--host", words.hosts,
                         "Another name by which clients address this machine. May be repeated"),
          "NAME");
  app.add_option("--spool", words.spool, "Keep the jobs in this folder")->type_name("DIR");
  app.add_option("--device", words.device,
                 "Where jobs go: file:/FOLDER/, socket://HOST:PORT, or another that the print "
                 "scheduler has a backend for")
      ->type_name("URI");
  app.add_option("--tls", words.tls,
                 "Encryption: never, offered or required; by default it is offered unless all "
                 "addresses are on the loopback interface")
      ->check(CLI::IsMember({"never", "offered", "required"}))
      ->type_name("USE");
  app.add_option("--certificate", words.certificate,
                 "The certificate for it, in PEM; by default one is created")
      ->type_name("FILE");
  app.add_option("--key", words.key, "The certificate's key, in PEM")->type_name("FILE");
  app.add_option("--library", words.library, "The feature library to load")->type_name("PATH");
  repeats(app.add_option("--callbacks", words.callbacks,
                         "Load a library of routines that descriptions name. May be repeated"),
          "LIB.so");
  repeats(app.add_option("--set", words.hardware,
                         "What is built into a printer, such as office:Finisher=Installed; it is "
                         "kept with the jobs. May be repeated"),
          "PRINTER:FEATURE=CHOICE");
  app.add_option("--connections", words.connections, "Maximum number of clients at a time")
      ->check(CLI::Range(1, 10000))
      ->type_name("NUMBER");
  app.add_option("--keep", words.keep, "Remember this many finished jobs")
      ->check(CLI::Range(1, 100000))
      ->type_name("NUMBER");
  app.add_flag("--no-dns-sd", words.isSilent, "Do not announce the printers on the network");
  app.add_option("PRINTER", words.printers, "A printer, and its description")
      ->type_name("NAME=DESCRIPTION.xml...");
}

std::string defaultSpool() {
  for (const char* name : {"STATE_DIRECTORY", "XDG_STATE_HOME", "HOME"}) {
    const char* folder = std::getenv(name);
    if (folder == nullptr || *folder == '\0') continue;
    if (std::string(name) == "STATE_DIRECTORY") return folder;
    const fs::path state = std::string(name) == "HOME" ? fs::path(folder) / ".local/state" : folder;
    return state / "driver-feature-printer";
  }
  return "";
}

// Beside this program, where the installation has it, or a link to it.
std::string filterProgram() {
  std::error_code ignored;
  const fs::path self = fs::read_symlink("/proc/self/exe", ignored);
  return self.parent_path() / "driver-feature-filter";
}

host::Result<PrinterArgument> printerOf(const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos || equals + 1 == word.size()) {
    return host::refused("the printer " + host::inQuotes(word) +
                         " has no description; give NAME=DESCRIPTION.xml");
  }
  const std::string name = word.substr(0, equals);
  if (!isPrinterName(name)) {
    return host::refused("a printer cannot be called " + host::inQuotes(name) +
                         "; use up to 127 letters, digits, \"-\" and \"_\"");
  }
  const std::string file = word.substr(equals + 1);
  if (::access(file.c_str(), R_OK) != 0) {
    return host::refused(file + ": cannot be read: " + std::strerror(errno));
  }
  return PrinterArgument{name, fs::absolute(file).lexically_normal(), {}};
}

host::Result<> takePrinters(const std::vector<std::string>& words, ServiceArguments& arguments) {
  if (words.empty()) {
    return host::refused(
        "no printer is given; give NAME=DESCRIPTION.xml; driver-feature-printer --help explains "
        "the usage");
  }
  for (const std::string& word : words) {
    auto printer = printerOf(word);
    if (!printer) return failureOf(printer);
    for (const PrinterArgument& other : arguments.printers) {
      if (other.name != printer->name) continue;
      return host::refused("two printers are called " + host::inQuotes(other.name) +
                           "; give each a name of its own");
    }
    arguments.printers.push_back(std::move(*printer));
  }
  return {};
}

host::Result<> takeHardware(const std::vector<std::string>& words, ServiceArguments& arguments) {
  for (const std::string& word : words) {
    const std::size_t colon = word.find(':');
    const std::size_t equals = word.find('=', colon == std::string::npos ? 0 : colon);
    if (colon == std::string::npos || equals == std::string::npos || equals == colon + 1) {
      return host::refused("--set " + host::inQuotes(word) +
                           " is incomplete; give PRINTER:FEATURE=CHOICE");
    }
    const std::string name = word.substr(0, colon);
    const auto printer =
        std::find_if(arguments.printers.begin(), arguments.printers.end(),
                     [&name](const PrinterArgument& one) { return one.name == name; });
    if (printer == arguments.printers.end()) {
      return host::refused("--set " + host::inQuotes(word) + " names a printer that is not given");
    }
    printer->hardware.push_back(
        {word.substr(colon + 1, equals - colon - 1), word.substr(equals + 1)});
  }
  return {};
}

host::Result<> takeEncryption(const Words& words, ServiceArguments& arguments) {
  if (words.certificate.empty() != words.key.empty()) {
    return host::refused("a certificate needs its key; give both --certificate and --key");
  }
  if (words.tls == "never") arguments.tls = TlsUse::kNever;
  if (words.tls == "required") arguments.tls = TlsUse::kRequired;
  if (words.tls == "offered" || (words.tls.empty() && !words.key.empty())) {
    arguments.tls = TlsUse::kOffered;
  }
  arguments.certificate = words.certificate;
  arguments.key = words.key;
  return {};
}

host::Result<ServiceArguments> argumentsOf(const Words& words) {
  ServiceArguments arguments;
  if (auto taken = takePrinters(words.printers, arguments); !taken) return failureOf(taken);
  if (auto taken = takeHardware(words.hardware, arguments); !taken) return failureOf(taken);
  if (words.device.empty()) {
    return host::refused(
        "no device is given; give --device with the place where jobs go, such as "
        "socket://printer.example or file:/tmp/jobs/");
  }
  if (auto checked = checkDevice(words.device); !checked) return failureOf(checked);
  if (auto taken = takeEncryption(words, arguments); !taken) return failureOf(taken);
  arguments.places = words.listen;
  if (arguments.places.empty()) arguments.places = {"127.0.0.1:8631"};
  arguments.hosts = words.hosts;
  arguments.isAnnounced = !words.isSilent;
  arguments.spool = words.spool.empty() ? defaultSpool() : words.spool;
  if (arguments.spool.empty())
    return host::refused("there is no folder for the jobs; give --spool");
  arguments.device = words.device;
  arguments.library = words.library.empty() ? "" : fs::absolute(words.library).string();
  for (const std::string& file : words.callbacks) {
    arguments.routines.push_back(fs::absolute(file).string());
  }
  arguments.filter = filterProgram();
  if (::access(arguments.filter.c_str(), X_OK) != 0) {
    return host::refused(arguments.filter + " is missing; install driver-feature as a whole");
  }
  arguments.limits.connections = words.connections;
  arguments.jobLimits.kept = words.keep;
  return arguments;
}

}  // namespace

bool isPrinterName(const std::string& name) {
  return !name.empty() && name.size() <= 127 && name[0] != '-' &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                  c == '-' || c == '_';
         });
}

host::Result<Line> readLine(int argc, const char* const* argv) {
  Words words;
  CLI::App app("Turn feature descriptions into printers for every IPP client",
               "driver-feature-printer");
  app.footer(kFooter);
  addOptions(app, words);
  auto text = cli::parseWords(app, argc, argv);
  if (!text) return failureOf(text);
  if (*text) return Line{std::nullopt, std::move(**text)};
  auto arguments = argumentsOf(words);
  if (!arguments) return failureOf(arguments);
  return Line{std::move(*arguments), ""};
}

}  // namespace driver_feature::printer

// The program driver-feature: loads a feature description through the feature
// library, shows its features, and writes printer-ready output.

#include <exception>
#include <string>

#include "host/command_line.h"
#include "host/console.h"
#include "host/dump.h"
#include "host/output_file.h"
#include "host/plugin.h"
#include "host/show.h"
#include "host/trial.h"

namespace driver_feature {

namespace {

int print(const std::string& text) {
  const WriteProblem problem = writeToStandardOutput(text);
  if (!problem) return kSuccess;
  complain(*problem);
  return kFailure;
}

int show(const CommandLine& line) {
  const std::size_t width = terminalWidth();
  std::string text;
  {
    const StandardOutputDiversion diversion;
    int status = kSuccess;
    const auto session = Session::open(line.session, status);
    if (!session) return status;
    if (!makeChanges(*session, line.changes)) return kUnusable;
    text = line.json ? showJson(session->model(), session->features())
                     : showTable(session->model(), session->features(), width);
  }
  return print(text);
}

// A library that is not there is no reason to hide the program's version,
// unless the caller has asked for that library.
int printVersions(const CommandLine& line) {
  std::string text = "driver-feature " DRIVER_FEATURE_VERSION "\n";
  std::string problem;
  const auto plugin = Plugin::load(line.session.library, problem);
  if (plugin) {
    text += std::string(plugin->displayName()) + " " + plugin->version() + " (" + plugin->path() +
            ")\n";
  } else if (!line.session.library.empty()) {
    complain(problem);
    return kFailure;
  }
  return print(text);
}

int run(int argc, char** argv) {
  CommandLine line;
  if (const auto status = readCommandLine(argc, argv, line)) return *status;
  switch (line.command) {
    case CommandCode::kShow:
      return show(line);
    case CommandCode::kEmit:
      return emit(line.session, line.changes, line.emit);
    case CommandCode::kDump:
      return dump(line.session, line.changes);
    case CommandCode::kTry:
      return tryChanges(line.session, line.changes);
    case CommandCode::kOther:
      return line.other.run();
    case CommandCode::kVersion:
      return printVersions(line);
  }
  return kUnusable;
}

}  // namespace

}  // namespace driver_feature

int main(int argc, char** argv) {
  driver_feature::prepareStandardStreams();
  try {
    return driver_feature::run(argc, argv);
  } catch (const std::exception& error) {
    driver_feature::complain(error.what());
    return driver_feature::kFailure;
  }
}

// "new": a folder to begin a driver with.

#include <array>

#include "host/base/output_file.h"
#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/starter/starter.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "The folder gets a description that checks clean, a library of routines with its\n"
    "CMakeLists.txt, cases with their expected outputs for \"driver-feature test\", and\n"
    "a README.md with the next steps.\n"
    "\n"
    "Examples:\n"
    "  driver-feature new laser\n"
    "  driver-feature new desk_printer --folder desk\n"
    "\n"
    "Exit status: 0 success, 1 the folder could not be written, 2 wrong usage or a\n"
    "folder that exists already. On failure nothing is written.";

constexpr std::array kRows = {
    ArgumentRow{"NAME", "TEXT", "The name of the driver", kRequired},
    ArgumentRow{"--folder", "DIR", "Where to write; by default a folder with the driver's name"},
};

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& /*general*/) {
  const std::string name = arguments.text("NAME");
  const std::string folder = arguments.text("--folder", name);
  auto files = starterFiles(name);
  if (!files) return failureOf(files);
  if (host::Result<> written = writeFolder(folder, *files); !written) return failureOf(written);
  const std::string text =
      "wrote " + host::printable(folder) + "; its README.md has the next steps\n";
  return host::writeToStandardOutput(text).map([] { return kSuccess; });
}

}  // namespace

const CommandRow kNewCommand = {"new", "Create a folder to start a driver from", kFooter, kRows, {},
                                &run};

}  // namespace driver_feature::cli

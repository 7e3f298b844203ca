// "import": feature descriptions of PPD files.

#include <array>
#include <string>
#include <vector>

#include "host/base/language.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/commands/import_run.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "Every option of a PPD file becomes a feature of the same name, and the choices\n"
    "its options. With several files or --all, each description is named after its\n"
    "file, with .xml in place of .ppd or .ppd.gz, and written beside it or to the\n"
    "folder given with --output.\n"
    "\n"
    "Constraints become rules, texts and translations become texts, and sheet sizes\n"
    "become media sizes, all beside the features. What a description cannot express is\n"
    "summed up on standard error (--verbose lists every item). With --strict, no\n"
    "description is written for a file that loses part of an option or a constraint.\n"
    "The loss of other keywords is not an error.\n"
    "\n"
    "Examples:\n"
    "  driver-feature import printer.ppd --output printer.xml\n"
    "  driver-feature import printer.ppd > printer.xml\n"
    "  driver-feature import --all ppds --output descriptions\n"
    "\n"
    "Exit status: 0 success, 1 a description could not be written, 2 wrong usage or\n"
    "a file that is not a PPD file, 3 a file was refused by --strict. With several\n"
    "files the others are still imported, and the lowest of these statuses counts.";

constexpr std::array kRows = {
    ArgumentRow{"PPD", "FILE", "The PPD files, compressed with gzip or not", kRepeats},
    ArgumentRow{"--all", "DIR", "Import all PPD files of a folder and its folders"},
    ArgumentRow{"--output", "FILE",
                "Write the description to this file; with several PPDs, to this folder"},
    ArgumentRow{"--strict", "", "Refuse a file that loses a part of an option or a constraint"},
};

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  const ImportStyle style{general.detail, arguments.has("--strict")};
  const std::vector<std::string>& files = arguments.texts("PPD");
  const std::string source = arguments.text("--all");
  const std::string output = arguments.text("--output");
  host::useEnglish();
  if (files.empty() == source.empty()) {
    return host::refused(
        "either PPD files or --all DIR is needed; driver-feature import --help explains the usage");
  }
  if (files.size() == 1) return importOne({files.front(), output.empty() ? "-" : output}, style);
  if (source.empty()) return importAll(planFiles(files, output), style);
  const ImportPlan plan = planFolder(source, output);
  if (plan.jobs.empty() && plan.problems.empty()) {
    return host::refused(source + ": there is no file named *.ppd or *.ppd.gz in the folder");
  }
  return importAll(plan, style);
}

}  // namespace

const CommandRow kImportCommand = {
    "import", "Turn PPD files into feature descriptions", kFooter, kRows, {}, &run};

}  // namespace driver_feature::cli

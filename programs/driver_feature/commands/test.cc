// "test": a folder of cases, compared with what is expected of them.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "host/base/output_file.h"
#include "host/base/text.h"
#include "programs/common/colour.h"
#include "programs/common/console.h"
#include "programs/driver_feature/cases/case_comparison.h"
#include "programs/driver_feature/cases/case_folder.h"
#include "programs/driver_feature/cases/case_run.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"

namespace driver_feature::cli {

namespace {

constexpr const char* kFooter =
    "A case NAME is a settings file NAME.conf, such as --save writes. Beside it are\n"
    "the expected outputs NAME.ps, NAME.pjl and NAME.ticket, and the messages\n"
    "NAME.log; what is empty needs no file. driver.txt in the folder names the\n"
    "description and its libraries of routines, as seen from the folder:\n"
    "\n"
    "  Description=../printer.xml\n"
    "  Routines=../build/libprinter.so\n"
    "\n"
    "Libraries given with --callbacks replace those. Refused settings are messages,\n"
    "too, so a case can show that a combination is refused.\n"
    "\n"
    "Examples:\n"
    "  driver-feature test cases\n"
    "  driver-feature test cases --update\n"
    "\n"
    "Exit status: 0 every output is as expected (or has been updated), 1 one is not,\n"
    "2 the cases could not be run.";

constexpr std::array kRows = {
    ArgumentRow{"FOLDER", "DIR", "A folder of cases", kRequired},
    ArgumentRow{"--update", "",
                "Accept the present output as the expected one, in all cases or none"},
    kAllowanceRow,
};

std::string composeStrays(const CaseFolder& folder) {
  std::string text;
  for (const std::string& file : folder.strays) {
    text += "FAIL  " + host::printable(file) +
            ": belongs to no case; remove it, or write its settings to a file of that name with "
            ".conf\n";
  }
  return text;
}

// 1 would say that an output differs.
host::Result<> print(const std::string& text) {
  host::Result<> written = host::writeToStandardOutput(text);
  if (!written) return host::refused(written.error().text);
  return {};
}

// The statuses of a comparison.
constexpr int kSame = 0;
constexpr int kDiffers = 1;

host::Result<int> report(const CaseFolder& folder, const std::vector<CaseComparison>& cases) {
  std::string text;
  long failed = 0;
  for (const CaseComparison& one : cases) {
    text += one.report(terminalWantsColour());
    failed += one.isAsExpected() ? 0 : 1;
  }
  text += composeStrays(folder);
  const auto all = static_cast<long>(cases.size());
  const auto strays = static_cast<long>(folder.strays.size());
  text += host::counted(all, "case") + ": ";
  text += failed == 0
              ? "as expected"
              : std::to_string(all - failed) + " as expected, " + std::to_string(failed) + " not";
  if (strays > 0) text += "; " + host::counted(strays, "file") + " of no case";
  const bool canUpdate =
      std::ranges::all_of(cases, [](const CaseComparison& one) { return one.failure().empty(); });
  text += failed > 0 && canUpdate ? "; --update accepts what is written now\n" : "\n";
  return print(text).map([&] { return failed == 0 && folder.strays.empty() ? kSame : kDiffers; });
}

// What --update has to do.
struct Update {
  std::vector<host::OutputText> outputs;
  std::vector<std::string> removed;
  std::string text;
};

Update updateOf(const CaseFolder& folder, const std::vector<CaseComparison>& cases) {
  Update update;
  for (const CaseComparison& one : cases) {
    for (const CaseChange& change : one.changes()) {
      const std::string path = folder.pathOf(change.file);
      const bool isGone = change.written.empty();
      update.text += (isGone ? "removed " : "wrote ") + host::printable(path) + "\n";
      if (isGone) {
        update.removed.push_back(path);
      } else {
        update.outputs.push_back({path, change.written});
      }
    }
  }
  return update;
}

host::Result<int> update(const CaseFolder& folder, const std::vector<CaseComparison>& cases) {
  std::string failures;
  for (const CaseComparison& one : cases) {
    if (!one.failure().empty()) failures += one.report(false);
  }
  if (!failures.empty()) {
    if (host::Result<> printed = print(failures); !printed) return failureOf(printed);
    return fail(host::Problem::Kind::kDifferent,
                "nothing is updated; every case must run to its end first");
  }
  const Update update = updateOf(folder, cases);
  if (host::Result<> written = writeAllOutputs(update.outputs); !written) {
    return host::refused(written.error().text);
  }
  for (const std::string& file : update.removed) {
    if (std::remove(file.c_str()) == 0) continue;
    return host::refused(file + ": cannot be removed: " + std::strerror(errno));
  }
  const std::string text = update.text.empty() ? "nothing to update\n" : update.text;
  return print(text + composeStrays(folder)).map([&] {
    return folder.strays.empty() ? kSame : kDiffers;
  });
}

host::Result<host::SessionRequest> requestOf(const CaseFolder& folder,
                                             const host::SessionRequest& general) {
  host::SessionRequest request = general;
  for (const std::string& library : folder.routines) {
    std::error_code error;
    if (!general.routines.empty() || std::filesystem::exists(library, error)) continue;
    return host::refused(folder.pathOf(kDriverFile) + ": there is no library of routines " +
                         library + "; build it, or give another one with --callbacks");
  }
  request.description = folder.pathOf(folder.description);
  if (request.routines.empty()) request.routines = folder.routines;
  request.advice =
      "name the library that has it in " + folder.pathOf(kDriverFile) + " or with " + "--callbacks";
  request.detail = host::LogDetail::kUsual;  // What is expected depends on it.
  return request;
}

host::Result<std::vector<CaseComparison>> compareAll(const CaseFolder& folder,
                                                     const std::vector<CaseRun>& runs) {
  std::vector<CaseComparison> cases;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    auto expected = readExpected(folder, folder.names[i]);
    if (!expected) return failureOf(expected);
    cases.emplace_back(folder.names[i], *expected, runs[i]);
  }
  return cases;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  auto folder = readCaseFolder(arguments.text("FOLDER"));
  if (!folder) return host::failureOf(folder);
  auto request = requestOf(*folder, general);
  if (!request) return host::failureOf(request);
  auto runs = runCases(*folder, *request, arguments.has("--allow-control-characters"));
  // 1 says that an output differs.
  if (!runs) return host::refused(runs.error().text);
  if (runs->empty()) return kUnusable;
  auto cases = compareAll(*folder, *runs);
  if (!cases) return host::failureOf(cases);
  if (arguments.has("--update")) return update(*folder, *cases);
  return report(*folder, *cases);
}

}  // namespace

const CommandRow kTestCommand = {
    "test",  "Run a folder of cases and compare their output with what is expected",
    kFooter, kRows,
    {},      &run};

}  // namespace driver_feature::cli

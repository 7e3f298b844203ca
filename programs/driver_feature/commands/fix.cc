#include "programs/driver_feature/commands/fix.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/line_diff.h"
#include "host/base/output_file.h"
#include "host/base/standard_streams.h"
#include "host/base/text.h"
#include "host/check/check.h"
#include "host/check/fixes.h"
#include "programs/common/console.h"

namespace driver_feature::cli {

namespace {

constexpr std::size_t kContext = 3;

// A file that changes.
struct MendedFile {
  std::string path;
  std::string before;
  std::string after;
  long fixes = 0;
};

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    lines.emplace_back(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
  }
  return lines;
}

std::string diffOf(const MendedFile& file) {
  std::string text = "--- " + file.path + "\n+++ " + file.path + "\n";
  const auto lines = host::diffLines(linesOf(file.before), linesOf(file.after));
  for (const host::DiffLine& line : host::withContext(lines, kContext)) {
    text += line.mark + line.text;
    if (line.mark == '@') {
      text += '\n';
    } else if (!line.text.ends_with('\n')) {
      text += "\n\\ No newline at end of file\n";
    }
  }
  return text;
}

// A change is sure only if it leaves less to report.
host::Result<bool> isBetter(const CheckRequest& request, const check::FileReport& report,
                            const std::string& fixed) {
  const host::StandardOutputDiversion diversion;
  const auto plugin = loadLibraries(request.general);
  if (!plugin) return host::Failure(plugin.error());
  auto after = check::checkText(report.file, fixed, *plugin);
  if (!after) return failureOf(after);
  request.selection.apply(after->findings);
  return after->usable && after->findings.size() < report.findings.size();
}

host::Result<std::vector<MendedFile>> mendAll(const CheckRequest& request,
                                              const std::vector<check::FileReport>& reports) {
  std::vector<MendedFile> mended;
  for (const check::FileReport& report : reports) {
    const long fixes = countFixes(report.findings);
    if (fixes == 0) continue;
    if (!report.isUtf8) {
      printError(report.file + ": is not UTF-8 and is not changed; save it as UTF-8 to fix it");
      continue;
    }
    const std::string fixed = report.mark + applyFixes(report.source, report.findings);
    const auto better = isBetter(request, report, fixed);
    if (!better) return host::Failure(better.error());
    if (*better) {
      mended.push_back({report.file, report.mark + report.source, fixed, fixes});
    } else {
      printError(report.file + ": the fixes would not improve it, and it is not changed");
    }
  }
  return mended;
}

host::Result<int> printDiffs(const std::vector<MendedFile>& mended) {
  std::string text;
  long fixes = 0;
  for (const MendedFile& file : mended) {
    text += diffOf(file);
    fixes += file.fixes;
  }
  return host::writeToStandardOutput(text).map([&] {
    if (mended.empty()) {
      printError("no finding has a safe fix; check without --fix shows all findings");
      return kSuccess;
    }
    printError(host::counted(fixes, "finding") + " in " +
               host::counted(static_cast<long>(mended.size()), "file") +
               " can be fixed; --fix --write makes the changes");
    return kFailure;
  });
}

}  // namespace

host::Result<int> fixFiles(const CheckRequest& request, bool write) {
  const auto reports = checkAll(request);
  if (!reports) return host::Failure(reports.error());
  const auto mended = mendAll(request, *reports);
  if (!mended) return host::Failure(mended.error());
  if (!write) return printDiffs(*mended);
  std::vector<host::OutputText> outputs;
  long fixes = 0;
  for (const MendedFile& file : *mended) {
    outputs.push_back({file.path, file.after});
    fixes += file.fixes;
  }
  if (host::Result<> written = writeAllOutputs(outputs); !written) return failureOf(written);
  printError(host::counted(fixes, "finding") + " fixed in " +
             host::counted(static_cast<long>(mended->size()), "file"));
  return checkOnce(request);
}

}  // namespace driver_feature::cli

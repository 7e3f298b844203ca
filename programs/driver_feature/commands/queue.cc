// "queue": the PPD of a print queue.

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "host/ppd/ppd_file.h"
#include "host/ppd/queue/job_end_lines.h"
#include "host/ppd/queue/minimal_ppd.h"
#include "host/ppd/queue/plain_stamp.h"
#include "host/ppd/queue/queue_lines.h"
#include "host/ppd/queue/read_back.h"
#include "programs/common/console.h"
#include "programs/driver_feature/change_arguments.h"
#include "programs/driver_feature/commands/commands.h"
#include "programs/driver_feature/work.h"

namespace driver_feature::cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFooter =
    "The print scheduler then runs driver-feature-filter for the jobs of the queue.\n"
    "With --ppd, the PPD is that file with the filter's lines added. Without, it is\n"
    "generated from the description: each visible feature that is a list or a number\n"
    "becomes an option, rules become constraints, and texts and sizes of sheets are\n"
    "included. The libraries of the general options are written into the PPD.\n"
    "\n"
    "Examples:\n"
    "  driver-feature queue office.xml --output queue.ppd\n"
    "  driver-feature queue office.xml --default-for-refused --name Office\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the PPD not\n"
    "written, 2 wrong usage or an unusable file.";

constexpr std::array kRows = {
    kDescriptionRow,
    ArgumentRow{"--ppd", "FILE", "The printer's PPD, from which the description was imported"},
    ArgumentRow{"--output", "FILE", "Write the PPD to this file"},
    ArgumentRow{"--name", "TEXT",
                "The printer's name in a PPD without --ppd; by default the description's",
                kOptional, "--ppd"},
    ArgumentRow{"--default-for-refused", "",
                "Replace a refused value of a job with the queue's default, instead of failing it"},
    ArgumentRow{"--resolve", "",
                "Change other features of a job, as few as possible, where a rule forbids values "
                "together, instead of failing it"},
};

std::string absolutePath(const std::string& path) {
  if (path.empty()) return path;
  const fs::path whole = fs::absolute(path);
  const fs::path normal = whole.lexically_normal();
  // After a symbolic link, ".." leads to the folder of what it points to.
  std::error_code ignored;
  return (fs::equivalent(whole, normal, ignored) ? normal : whole).string();
}

ppd::QueueRequest requestOf(const Arguments& arguments, const host::SessionRequest& general) {
  ppd::QueueRequest request;
  request.description = absolutePath(arguments.text("DESC"));
  request.library = absolutePath(general.library);
  for (const std::string& routines : general.routines) {
    request.routines.push_back(absolutePath(routines));
  }
  request.defaultForRefused = arguments.has("--default-for-refused");
  request.resolves = arguments.has("--resolve");
  return request;
}

// An option of the PPD that the description has no feature for does nothing.
void warnOfOptions(const Arguments& arguments, const host::Model& model, ppd_file_t& ppd) {
  for (ppd_option_t* option : ppd::optionsOf(ppd)) {
    const std::string keyword = option->keyword;
    const auto next = model.features.lower_bound(keyword + ".");
    const bool hasChoices = next != model.features.end() && next->first.starts_with(keyword + ".");
    if (model.features.contains(keyword) || hasChoices || keyword == "PageRegion") continue;
    printError(arguments.text("--ppd") + ": option " + keyword + " does nothing, because " +
               arguments.text("DESC") + " has no such feature");
  }
}

// Of a PPD that libcups could not use. `origins` is empty for one that was made
// of the description.
host::Failure refusePpd(const Arguments& arguments, const ppd::UnusablePpd& unusable,
                        const std::vector<int>& origins) {
  const bool isMade = !arguments.has("--ppd");
  std::string place = isMade ? arguments.text("DESC") : arguments.text("--ppd");
  const auto line = static_cast<std::size_t>(std::max(unusable.line, 0));
  if (line > 0 && line <= origins.size() && origins[line - 1] > 0) {
    place += ":" + std::to_string(origins[line - 1]);
  }
  return host::refused(place + ": libcups could not use the queue's PPD: " + unusable.reason +
                       "; nothing is written; " +
                       (isMade ? "give the printer's PPD with --ppd"
                               : "correct the PPD (cupstestppd explains more)"));
}

// The text has the other lines; the stamp does not count itself.
void addStamp(const std::string& text, std::vector<std::string>& lines) {
  std::string stamp = ppd::plainStampLine(text);
  if (!stamp.empty()) lines.insert(lines.begin(), std::move(stamp));
}

// Made of the description.
host::Result<std::string> composeMade(const Arguments& arguments, const host::Session& session,
                                      std::vector<std::string> lines) {
  const std::string stem = fs::path(arguments.text("DESC")).stem();
  const std::string name = arguments.text("--name", stem);
  const host::Additions& additions =
      session.additions(host::kRulesPart | host::kTextsPart | host::kPanelsPart | host::kMediaPart);
  for (const host::Problem& problem : additions.problems) {
    printError("not in the PPD: " + host::describe(problem));
  }
  ppd::MinimalPpd ppd = ppd::minimalPpd(session.model(), additions, name, lines);
  addStamp(ppd.text, lines);
  ppd = ppd::minimalPpd(session.model(), additions, name, lines);
  if (const auto unusable = ppd::readBack(ppd.text, lines, nullptr)) {
    return refusePpd(arguments, *unusable, {});
  }
  for (const std::string& loss : ppd.losses) printError("not in the PPD: " + loss);
  return ppd.text;
}

host::Result<std::string> compose(const Arguments& arguments, const host::Session& session,
                                  std::vector<std::string> lines) {
  if (!arguments.has("--ppd")) return composeMade(arguments, session, std::move(lines));
  const std::string file = arguments.text("--ppd");
  host::Result<ppd::PpdPointer> ppd = ppd::readPpd(file);
  if (!ppd) return failureOf(ppd);
  const std::string bytes = ppd::ppdBytes(file);
  if (bytes.empty()) {
    return host::refused(file + ": cannot be read a second time; give a file instead of a pipe");
  }
  // The queue's own lines first: a PPD that has been through here comes out as it
  // was.
  for (const std::string& line : ppd::jobEndLines(**ppd)) lines.push_back(line);
  for (const std::string& line : ppd::mediaLines(**ppd)) lines.push_back(line);
  addStamp(ppd::withQueueLines(bytes, lines).text, lines);
  const ppd::QueueText queue = ppd::withQueueLines(bytes, lines);
  if (const auto unusable = ppd::readBack(queue.text, lines, ppd->get())) {
    return refusePpd(arguments, *unusable, queue.origins);
  }
  warnOfOptions(arguments, session.model(), **ppd);
  return queue.text;
}

host::Result<int> run(const Arguments& arguments, const host::SessionRequest& general) {
  auto lines = queueLines(requestOf(arguments, general));
  if (!lines) return failureOf(lines);
  return workOnDescription(
      sessionOf(arguments, general), {},
      [&](host::Session& session, std::vector<host::OutputText>& outputs) {
        return compose(arguments, session, *lines).map([&](std::string text) {
          outputs.push_back({arguments.text("--output", "-"), std::move(text)});
        });
      });
}

}  // namespace

const CommandRow kQueueCommand = {
    "queue", "Write the PPD of a print queue", kFooter, kRows, {}, &run, true};

}  // namespace driver_feature::cli

#include "host/queue/queue_command.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/changes.h"
#include "host/command_arguments.h"
#include "host/console.h"
#include "host/ppd/ppd_file.h"
#include "host/queue/job_end_lines.h"
#include "host/queue/minimal_ppd.h"
#include "host/queue/queue_lines.h"
#include "host/queue/read_back.h"

namespace driver_feature {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFooter =
    "The print scheduler then runs driver-feature-filter for the jobs of the queue.\n"
    "With --ppd the PPD is the file with the filter's lines in it. Without, it is made\n"
    "of the description: each visible feature that is a list or a number becomes an\n"
    "option. The libraries of the general options are written into the PPD.\n"
    "\n"
    "Examples:\n"
    "  driver-feature queue office.xml --output queue.ppd\n"
    "  driver-feature queue office.xml --default-for-refused --name Office\n"
    "\n"
    "Exit status: 0 success, 1 the description could not be loaded or the PPD not\n"
    "written, 2 wrong usage or an unusable file.";

struct Arguments {
  std::string description;
  std::string ppd;
  std::string output = "-";
  std::string name;
  bool defaultForRefused = false;
};

std::string absolutePath(const std::string& path) {
  if (path.empty()) return path;
  const fs::path whole = fs::absolute(path);
  const fs::path normal = whole.lexically_normal();
  // Behind a symbolic link, ".." leads to the folder of what it points to.
  std::error_code ignored;
  return (fs::equivalent(whole, normal, ignored) ? normal : whole).string();
}

QueueRequest requestOf(const Arguments& arguments, const SessionRequest& general) {
  QueueRequest request;
  request.description = absolutePath(arguments.description);
  request.library = absolutePath(general.library);
  for (const std::string& routines : general.routines) {
    request.routines.push_back(absolutePath(routines));
  }
  request.defaultForRefused = arguments.defaultForRefused;
  return request;
}

// An option of the PPD that the description has no feature for does nothing.
void complainOfOptions(const Arguments& arguments, const Model& model, ppd_file_t& ppd) {
  for (ppd_option_t* option : optionsOf(ppd)) {
    const std::string keyword = option->keyword;
    const auto next = model.features.lower_bound(keyword + ".");
    const bool hasChoices = next != model.features.end() && next->first.starts_with(keyword + ".");
    if (model.features.contains(keyword) || hasChoices || keyword == "PageRegion") continue;
    complain(arguments.ppd + ": option " + keyword + " does nothing, because " +
             arguments.description + " has no such feature");
  }
}

// Of a PPD that libcups could not use. `origins` is empty for one that was made
// of the description.
int complainOfPpd(const Arguments& arguments, const UnusablePpd& unusable,
                  const std::vector<int>& origins) {
  const bool isMade = arguments.ppd.empty();
  std::string place = isMade ? arguments.description : arguments.ppd;
  const auto line = static_cast<std::size_t>(std::max(unusable.line, 0));
  if (line > 0 && line <= origins.size() && origins[line - 1] > 0) {
    place += ":" + std::to_string(origins[line - 1]);
  }
  complain(place + ": libcups cannot use the queue's PPD that would be made of it: " +
           unusable.reason + "; nothing is written; " +
           (isMade ? "give the printer's PPD with --ppd"
                   : "correct the PPD (cupstestppd explains more)"));
  return kUnusable;
}

int composeMade(const Arguments& arguments, const Session& session,
                const std::vector<std::string>& lines, std::vector<Result>& results) {
  const std::string stem = fs::path(arguments.description).stem();
  const MinimalPpd ppd =
      minimalPpd(session.model(), arguments.name.empty() ? stem : arguments.name, lines);
  if (const auto unusable = readBack(ppd.text, lines, nullptr)) {
    return complainOfPpd(arguments, *unusable, {});
  }
  for (const std::string& loss : ppd.losses) complain("not in the PPD: " + loss);
  results.push_back({arguments.output, ppd.text});
  return kSuccess;
}

int compose(const Arguments& arguments, const Session& session, std::vector<std::string> lines,
            std::vector<Result>& results) {
  if (arguments.ppd.empty()) return composeMade(arguments, session, lines, results);
  PpdProblem problem;
  const PpdPointer ppd = readPpd(arguments.ppd, problem);
  if (!ppd) {
    complain(problem.text);
    return kUnusable;
  }
  const std::string bytes = ppdBytes(arguments.ppd);
  if (bytes.empty()) {
    complain(arguments.ppd + ": cannot be read a second time; give a file instead of a pipe");
    return kUnusable;
  }
  // The queue's own lines first: a PPD that has been through here comes out as it
  // was.
  for (const std::string& line : jobEndLines(*ppd)) lines.push_back(line);
  for (const std::string& line : mediaLines(*ppd)) lines.push_back(line);
  const QueueText queue = withQueueLines(bytes, lines);
  if (const auto unusable = readBack(queue.text, lines, ppd.get())) {
    return complainOfPpd(arguments, *unusable, queue.origins);
  }
  complainOfOptions(arguments, session.model(), *ppd);
  results.push_back({arguments.output, queue.text});
  return kSuccess;
}

int run(const Arguments& arguments, const SessionRequest& general) {
  std::string problem;
  const std::vector<std::string> lines = queueLines(requestOf(arguments, general), problem);
  if (!problem.empty()) {
    complain(problem);
    return kUnusable;
  }
  SessionRequest request = general;
  request.description = arguments.description;
  return workOnDescription(request, {}, [&](Session& session, std::vector<Result>& results) {
    return compose(arguments, session, lines, results);
  });
}

}  // namespace

Command addQueueCommand(CLI::App& program, const SessionRequest& general) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command = addCommand(program, "queue", "Write the PPD of a print queue", kFooter);
  addDescription(*command, arguments->description);
  auto* ppd = command
                  ->add_option("--ppd", arguments->ppd,
                               "The printer's PPD, of which the description was made")
                  ->type_name("FILE");
  command->add_option("--output", arguments->output, "Write the PPD to this file")
      ->type_name("FILE");
  command
      ->add_option("--name", arguments->name,
                   "What a PPD without --ppd calls the printer; else the description's name")
      ->type_name("TEXT")
      ->excludes(ppd);
  command->add_flag("--default-for-refused", arguments->defaultForRefused,
                    "Print a job with a refused value with the queue's default, instead of "
                    "failing it");
  return {command, [arguments, &general] { return run(*arguments, general); }};
}

}  // namespace driver_feature

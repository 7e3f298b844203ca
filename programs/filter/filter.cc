#include "programs/filter/filter.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "host/base/standard_streams.h"
#include "host/session/output_form.h"
#include "host/session/routine_calls.h"
#include "host/session/routine_runs.h"
#include "host/session/session.h"
#include "programs/common/console.h"
#include "programs/filter/cancellation.h"
#include "programs/filter/copy_job.h"
#include "programs/filter/job_frame.h"
#include "programs/filter/job_settings.h"
#include "programs/filter/messages.h"
#include "programs/filter/page_work.h"
#include "programs/filter/queue.h"
#include "programs/filter/sections.h"

namespace driver_feature::filter {

int failWith(const host::Problem& problem) {
  writeMessage(Message::kError, describe(problem));
  return cli::kFailure;
}

namespace {

JobTexts composeTexts(const host::Session& session, const ppd::QueuePpd* ppd,
                      const FilterArguments& arguments, bool takesCopies) {
  std::vector<std::string> unknown;
  JobTexts texts;
  texts.sections =
      cutSections(outputOf(session.features(), host::OutputForm::kPostScript), unknown);
  for (const std::string& name : unknown) {
    writeMessage(Message::kDebug,
                 "there is no section " + name + "; it goes into the document set-up");
  }
  if (ppd != nullptr && !arguments.isConverted) {
    texts.sections.prolog.insert(0, ppd->jobPatch());
  }
  if (!takesCopies) appendLines(texts.sections.documentSetup, copiesText(arguments.copies));
  const JobFrame frame = frameOf(session.model(), ppd, arguments,
                                 outputOf(session.features(), host::OutputForm::kPjl));
  texts.sections.header = frame.header;
  texts.trailer = frame.trailer;
  if (ppd != nullptr) texts.around = libcupsFrameOf(*ppd, arguments, frame);
  return texts;
}

// What the description makes of the job's options; nothing after an ERROR
// line.
std::optional<JobTexts> textsFor(FilterArguments& arguments, const Queue& queue, ppd::QueuePpd* ppd,
                                 PageWork& pages) {
  const host::StandardOutputDiversion diversion;
  host::SessionRequest request;
  request.description = queue.description;
  request.library = queue.library;
  request.routines = queue.routines;
  request.advice = "write the queue's PPD again with driver-feature queue and --callbacks";
  request.report = cli::printError;
  request.loadSetting = host::applyLoadedSetting;
  const auto opened = host::Session::open(request);
  if (!opened) {
    writeMessage(Message::kError, describe(opened.error()));
    return std::nullopt;
  }
  host::Session& session = **opened;
  // Such as a routine that is missing: the job then lacks what it would write.
  session.log().setReport([](const std::string& line) { writeMessage(Message::kWarning, line); });
  session.log().release();
  session.offerNoAllowance();
  JobSettings settings(session, ppd, queue, pages);
  if (!settings.apply(arguments)) return std::nullopt;
  if (pages.makesCopies()) arguments.copies = 1;
  auto texts = composeTexts(session, ppd, arguments, settings.takesCopies());
  arguments.copies = settings.copiesMade(arguments.copies);
  settings.markAll();
  const host::Result<> ran = host::successOfRoutines();
  if (ran) return texts;
  writeMessage(Message::kError, ran.error().text);
  return std::nullopt;
}

// Where a document was converted first, the filters before this one have made
// the copies.
void dropCopiesMade(FilterArguments& arguments) {
  const char* type = std::getenv("CONTENT_TYPE");
  const bool isFirst = !arguments.file.empty() || type == nullptr;
  arguments.isConverted = !isFirst && std::strcmp(type, "application/postscript") != 0;
  if (arguments.isConverted) arguments.copies = 1;
}

int printJob(FilterArguments& arguments, const Queue& queue, ppd::QueuePpd* ppd) {
  PageWork pages(arguments, ppd);
  auto texts = textsFor(arguments, queue, ppd, pages);
  if (!texts) return cli::kFailure;
  if (const auto started = pages.start(arguments, *texts); !started) {
    return failWith(started.error());
  }
  host::Result<> printed = copyJob(arguments, *texts);
  if (host::Result<> ended = pages.finish(); !ended && !isCancelled()) printed = std::move(ended);
  return printed ? cli::kSuccess : failWith(printed.error());
}

void reportThrown(const char* what) {
  const std::string thrown = describeThrow(host::routineRecord());
  writeMessage(Message::kError, thrown.empty() ? what : thrown);
}

int runCaught(const std::function<int()>& run) {
  try {
    return run();
  } catch (const std::bad_alloc&) {
    cli::printLackOfMemory();
  } catch (const std::exception& error) {
    reportThrown(error.what());
  } catch (...) {
    reportThrown("an exception that is not derived from std::exception has ended the work");
  }
  return cli::kFailure;
}

}  // namespace

int runJob(FilterArguments arguments, ppd::QueuePpd* ppd) {
  dropCopiesMade(arguments);
  const auto queue = readQueue(ppd, [](const char* name) { return std::getenv(name); });
  if (!queue) return failWith(queue.error());
  writeMessage(Message::kDebug, "the description is " + queue->description);
  if (queue->routines.empty()) return printJob(arguments, *queue, ppd);
  // Routines of others are kept away from this process, which says what they did.
  const host::Result<int> status = host::runWithRoutines(
      [&] { return runCaught([&] { return printJob(arguments, *queue, ppd); }); });
  return status ? *status : failWith(status.error());
}

int runGuarded(const std::function<int()>& run) {
  host::prepareStandardStreams();
  cli::startMessagesWith("ERROR: ");
  return runCaught(run);
}

bool prepareCancellation() {
  if (catchCancellation()) return true;
  failWith({host::Problem::Kind::kNotLoaded,
            std::string("no signal handler: ") + std::strerror(errno), ""});
  return false;
}

}  // namespace driver_feature::filter

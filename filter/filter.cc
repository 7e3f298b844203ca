#include "filter/filter.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "filter/arguments.h"
#include "filter/cancellation.h"
#include "filter/copy_job.h"
#include "filter/job_frame.h"
#include "filter/job_settings.h"
#include "filter/messages.h"
#include "filter/page_work.h"
#include "filter/queue.h"
#include "filter/queue_ppd.h"
#include "filter/sections.h"
#include "host/console.h"
#include "host/emit.h"
#include "host/session.h"

namespace driver_feature {

namespace {

int fail(const std::string& problem) {
  tell(Message::kError, problem);
  return kFailure;
}

std::string outputOf(const Session& session, OutputForm form) {
  std::string output;
  session.features().serialize(output, static_cast<int>(form), false, "", "");
  return output;
}

JobTexts composeTexts(const Session& session, const QueuePpd* ppd, const FilterArguments& arguments,
                      bool takesCopies) {
  std::vector<std::string> unknown;
  JobTexts texts;
  texts.sections = cutSections(outputOf(session, OutputForm::kPostScript), unknown);
  for (const std::string& name : unknown) {
    tell(Message::kDebug, "there is no section " + name + "; it goes into the document set-up");
  }
  if (ppd != nullptr && !arguments.isConverted) {
    texts.sections.prolog.insert(0, ppd->jobPatch());
  }
  if (!takesCopies) appendLines(texts.sections.documentSetup, copiesText(arguments.copies));
  const JobFrame frame =
      frameOf(session.model(), ppd, arguments, outputOf(session, OutputForm::kPjl));
  texts.sections.header = frame.header;
  texts.trailer = frame.trailer;
  if (ppd != nullptr) texts.around = libcupsFrameOf(*ppd, arguments, frame);
  return texts;
}

// What the description makes of the job's options; nothing after an ERROR
// line.
std::optional<JobTexts> textsFor(FilterArguments& arguments, const Queue& queue, QueuePpd* ppd,
                                 PageWork& pages) {
  const StandardOutputDiversion diversion;
  SessionRequest request;
  request.description = queue.description;
  request.library = queue.library;
  request.routines = queue.routines;
  request.advice = "write the queue's PPD again with driver-feature queue and --callbacks";
  int status = kSuccess;
  const auto session = Session::open(request, status);
  if (!session) return std::nullopt;
  // Such as a routine that is missing: the job then lacks what it would write.
  session->log().setTeller([](const std::string& line) { tell(Message::kWarning, line); });
  session->log().release();
  session->offerNoAllowance();
  JobSettings settings(session->model(), ppd, queue.refusedValue, pages);
  if (!settings.apply(arguments)) return std::nullopt;
  if (pages.makesCopies()) arguments.copies = 1;
  auto texts = composeTexts(*session, ppd, arguments, settings.takesCopies());
  arguments.copies = settings.copiesMade(arguments.copies);
  settings.markAll();
  return texts;
}

// Where a document was converted first, the filters before this one have made
// the copies.
void dropCopiesMade(FilterArguments& arguments) {
  const char* type = std::getenv("CONTENT_TYPE");
  const bool isFirst = !arguments.file.empty() || type == nullptr;
  arguments.isConverted = !isFirst && std::strcmp(type, "application/postscript") != 0;
  if (arguments.isConverted) arguments.copies = 1;
}

std::unique_ptr<QueuePpd> openPpd(std::string& problem) {
  const char* path = std::getenv("PPD");
  if (path == nullptr || *path == '\0') return nullptr;
  return QueuePpd::open(path, problem);
}

}  // namespace

int runFilter(int argc, const char* const* argv) {
  nameComplaints("ERROR: ");
  if (!catchCancellation()) return fail(std::string("no signal handler: ") + std::strerror(errno));
  std::string problem;
  auto arguments = readArguments(argc, argv, problem);
  if (!arguments) return fail(problem);
  dropCopiesMade(*arguments);
  const auto ppd = openPpd(problem);
  if (!problem.empty()) return fail(problem);
  const auto queue = readQueue(
      ppd.get(), [](const char* name) { return std::getenv(name); }, problem);
  if (!queue) return fail(problem);
  tell(Message::kDebug, "the description is " + queue->description);
  PageWork pages(*arguments, ppd.get());
  auto texts = textsFor(*arguments, *queue, ppd.get(), pages);
  if (!texts) return kFailure;
  if (const auto failure = pages.start(*arguments, *texts)) return fail(*failure);
  auto failure = copyJob(*arguments, *texts);
  if (const auto ofPages = pages.finish(); ofPages && !isCancelled()) failure = ofPages;
  return failure ? fail(*failure) : kSuccess;
}

}  // namespace driver_feature

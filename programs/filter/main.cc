// The program driver-feature-filter: what a print scheduler runs for the jobs of
// a queue, to write them with the commands of a feature description.

#include <cstdlib>
#include <memory>

#include "host/ppd/queue/libcups_queue_ppd.h"
#include "programs/filter/arguments.h"
#include "programs/filter/filter.h"
#include "programs/filter/option_text.h"
#include "programs/filter/plain_job.h"

namespace driver_feature::filter {

namespace {

// The PPD of the queue; null for a trial without one.
host::Result<std::unique_ptr<ppd::LibcupsQueuePpd>> openPpd() {
  const char* path = std::getenv("PPD");
  if (path == nullptr || *path == '\0') return nullptr;
  return ppd::LibcupsQueuePpd::open(path);
}

int runFilter(int argc, const char* const* argv) {
  if (!prepareCancellation()) return 1;
  // To load libcups and have it read a PPD takes more time than all the rest, and
  // most jobs can do without.
  if (const auto job = plainJobOf(argc, argv)) return runJob(job->arguments, job->ppd.get());
  const auto arguments = readArguments(argc, argv, &parseOptions);
  if (!arguments) return failWith(arguments.error());
  const auto ppd = openPpd();
  if (!ppd) return failWith(ppd.error());
  return runJob(*arguments, ppd->get());
}

}  // namespace

}  // namespace driver_feature::filter

int main(int argc, char** argv) {
  return driver_feature::filter::runGuarded(
      [&] { return driver_feature::filter::runFilter(argc, argv); });
}

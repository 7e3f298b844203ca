#include "host/page/page_process.h"

#include <nlohmann/json.hpp>

#include "host/base/descriptor.h"
#include "host/base/frames.h"
#include "host/base/standard_streams.h"
#include "host/page/page.h"
#include "host/page/shown_text.h"
#include "host/session/routine_calls.h"

namespace driver_feature::page {

namespace {

std::string notLoaded(const host::Problem& problem) {
  const nlohmann::json reply = {{"loaded", false}, {"text", shown(describe(problem))}};
  return reply.dump();
}

}  // namespace

int runPageProcess(int socket, const PageRequest& request) {
  const host::StandardOutputDiversion diversion;
  // Changes are tried in copies of this process, which say here what a routine did.
  const host::SharedRoutineRecord record;
  const auto page = Page::open(request, socket);
  if (!page) {
    host::writeAll(socket, host::frame(notLoaded(page.error())));
    return 1;
  }
  if (!host::writeAll(socket, host::frame(R"({"loaded":true})"))) return 1;
  std::string arrived;
  while (const auto text = host::nextFrame(socket, arrived)) {
    if (!host::writeAll(socket, host::frame((*page)->reply(*text)))) break;
  }
  return 0;
}

}  // namespace driver_feature::page

#include "host/emit.h"

#include "host/console.h"
#include "host/output_file.h"

namespace driver_feature {

namespace {

// Answers the exit status; for success the bytes are in `output`.
int produce(const SessionRequest& sessionRequest, const Changes& changes,
            const EmitRequest& request, std::string& output) {
  const StandardOutputDiversion diversion;
  int status = kSuccess;
  const auto session = Session::open(sessionRequest, status);
  if (!session) return status;
  if (!makeChanges(*session, changes)) return kUnusable;
  session->features().serialize(output, static_cast<int>(request.form), request.installableOptions,
                                request.ticketArgument1.c_str(), request.ticketArgument2.c_str());
  return kSuccess;
}

}  // namespace

int emit(const SessionRequest& sessionRequest, const Changes& changes, const EmitRequest& request) {
  std::string output;
  const int status = produce(sessionRequest, changes, request, output);
  if (status != kSuccess) return status;
  const WriteProblem problem =
      request.file.empty() ? writeToStandardOutput(output) : writeToFile(request.file, output);
  if (!problem) return kSuccess;
  complain(*problem);
  return kFailure;
}

}  // namespace driver_feature

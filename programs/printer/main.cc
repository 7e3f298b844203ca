// The program driver-feature-printer: printers made of feature descriptions, which
// clients reach with the Internet Printing Protocol.

#include "host/base/output_file.h"
#include "host/server/stop_signals.h"
#include "programs/common/console.h"
#include "programs/common/guarded_run.h"
#include "programs/printer/arguments.h"
#include "programs/printer/service.h"

namespace driver_feature::printer {

namespace {

int run(int argc, const char* const* argv) {
  auto line = readLine(argc, argv);
  if (!line) return cli::report(line.error());
  if (!line->arguments) {
    const auto written = host::writeToStandardOutput(line->text);
    return written ? cli::kSuccess : cli::report(written.error());
  }
  host::EventLoop loop;
  host::stopBySignal(loop);
  Service service(loop, std::move(*line->arguments));
  if (const auto started = service.start(); !started) return cli::report(started.error());
  loop.run();
  if (service.hasPrinters()) return cli::kSuccess;
  cli::printError("no printer remains");
  return cli::kFailure;
}

}  // namespace

}  // namespace driver_feature::printer

int main(int argc, char** argv) {
  using namespace driver_feature;
  return cli::runGuarded("driver-feature-printer: ", [&] { return printer::run(argc, argv); });
}

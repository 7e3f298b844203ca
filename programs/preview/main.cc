// The program driver-feature-preview: a page that shows a description as a print
// dialog would, and follows it while it is written.

#include <fcntl.h>
#include <unistd.h>

#include <optional>

#include "host/base/child_process.h"
#include "host/base/child_setting.h"
#include "host/base/output_file.h"
#include "host/server/stop_signals.h"
#include "programs/common/console.h"
#include "programs/common/guarded_run.h"
#include "programs/preview/arguments.h"
#include "programs/preview/site.h"

namespace driver_feature::preview {

namespace {

// Starts the browser. It stays when this program ends.
void open(const std::string& address) {
  const pid_t child = ::fork();
  if (child == -1) return cli::printError("no browser can be started; open the address yourself");
  if (child > 0) return;
  ::setsid();
  const int nothing = ::open("/dev/null", O_RDWR);
  if (nothing != -1) ::dup2(nothing, STDOUT_FILENO);
  host::leaveServer(STDERR_FILENO);
  ::execlp("xdg-open", "xdg-open", address.c_str(), static_cast<char*>(nullptr));
  cli::printError("xdg-open is not installed; open the address yourself");
  ::_exit(cli::kFailure);
}

int run(int argc, const char* const* argv) {
  auto line = readLine(argc, argv);
  if (!line) return cli::report(line.error());
  if (!line->arguments) {
    const auto written = host::writeToStandardOutput(line->text);
    return written ? cli::kSuccess : cli::report(written.error());
  }
  host::EventLoop loop;
  host::stopBySignal(loop);
  Site site(loop, *line->arguments);
  if (const auto started = site.start(); !started) return cli::report(started.error());
  if (site.page().watchProblem()) {
    cli::printError("changes cannot be followed: " + describe(*site.page().watchProblem()));
  }
  const auto written = host::writeToStandardOutput(site.address() + "\n");
  if (!written) return cli::report(written.error());
  if (line->arguments->opens) open(site.address());
  loop.run();
  return cli::kSuccess;
}

}  // namespace

}  // namespace driver_feature::preview

int main(int argc, char** argv) {
  using namespace driver_feature;
  return cli::runGuarded("driver-feature-preview: ", [&] { return preview::run(argc, argv); });
}

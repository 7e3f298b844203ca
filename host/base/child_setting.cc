#include "host/base/child_setting.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace driver_feature::host {

int leaveServer(int kept) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGCHLD}) std::signal(signal, SIG_DFL);
  constexpr int kFirst = STDERR_FILENO + 1;
  if (kept != kFirst) ::dup3(kept, kFirst, O_CLOEXEC);
  ::close_range(kFirst + 1, ~0U, 0);
  return kFirst;
}

}  // namespace driver_feature::host

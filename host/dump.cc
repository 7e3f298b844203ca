#include "host/dump.h"

#include <cerrno>
#include <cstring>
#include <iostream>

#include "host/console.h"

namespace driver_feature {

int dump(const SessionRequest& sessionRequest, const Changes& changes) {
  std::unique_ptr<Session> session;
  {
    const StandardOutputDiversion diversion;
    int status = kSuccess;
    session = openChanged(sessionRequest, changes, status);
    if (!session) return status;
  }
  const int saved = deliver(saveResults(*session, changes));
  if (saved != kSuccess) return saved;
  // The library prints through the C++ stream that this program shares.
  errno = 0;
  session->features().dumpFeatureListValues();
  if (std::cout.good()) return kSuccess;
  complain(std::string("standard output cannot be written: ") +
           std::strerror(errno != 0 ? errno : EIO));
  return kFailure;
}

}  // namespace driver_feature

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
    session = Session::open(sessionRequest, status);
    if (!session) return status;
    if (!makeChanges(*session, changes)) return kUnusable;
  }
  // The library prints through the C++ stream that this program shares.
  errno = 0;
  session->features().dumpFeatureListValues();
  if (std::cout.good()) return kSuccess;
  complain(std::string("standard output cannot be written: ") +
           std::strerror(errno != 0 ? errno : EIO));
  return kFailure;
}

}  // namespace driver_feature

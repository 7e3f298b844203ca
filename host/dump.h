// The library's own listing of the whole model.
#ifndef HOST_DUMP_H_
#define HOST_DUMP_H_

#include "host/changes.h"
#include "host/session.h"

namespace driver_feature {

// Opens the session, makes the changes, and lets the library print its model
// on standard output. Answers the program's exit status.
int dump(const SessionRequest& sessionRequest, const Changes& changes);

}  // namespace driver_feature

#endif  // HOST_DUMP_H_

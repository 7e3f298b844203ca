// The end of a server that a signal asks for.
#ifndef HOST_SERVER_STOP_SIGNALS_H_
#define HOST_SERVER_STOP_SIGNALS_H_

#include "host/server/event_loop.h"

namespace driver_feature::host {

// SIGTERM and SIGINT end the loop from now on; a process that was made meanwhile, and
// has no handlers of its own yet, ends with status 1. One loop in a program. The loop
// must outlive it.
void stopBySignal(EventLoop& loop);

}  // namespace driver_feature::host

#endif  // HOST_SERVER_STOP_SIGNALS_H_

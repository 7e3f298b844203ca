// Trying settings out and taking them back.
#ifndef HOST_TRIAL_H_
#define HOST_TRIAL_H_

#include "host/changes.h"
#include "host/session.h"

namespace driver_feature {

// Opens the session, lets the library save every value, makes the changes,
// lets the library restore the values, and prints a table of the features that
// the changes have reached, directly or through the description's routines.
// Answers the program's exit status; a value that is not restored is a
// failure.
int tryChanges(const SessionRequest& sessionRequest, const Changes& changes);

}  // namespace driver_feature

#endif  // HOST_TRIAL_H_

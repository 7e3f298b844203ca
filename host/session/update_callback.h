// The routine that a description registers for changes.
#ifndef HOST_SESSION_UPDATE_CALLBACK_H_
#define HOST_SESSION_UPDATE_CALLBACK_H_

namespace driver_feature::host {

using UpdateCallback = bool (*)();

// The callback that the feature-description element registers; the program's own
// when it registers none. The last element counts, as in the library.
UpdateCallback updateCallbackOf(void* description);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_UPDATE_CALLBACK_H_

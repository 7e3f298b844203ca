// What a copy of a server's process does first: it gives up what belongs to the
// server.
#ifndef HOST_BASE_CHILD_SETTING_H_
#define HOST_BASE_CHILD_SETTING_H_

namespace driver_feature::host {

// Closes every descriptor but the standard streams and `kept`, so that a client's
// connection ends when the server closes it, and gives signals their usual
// meaning. Returns the kept descriptor, which gets another number.
int leaveServer(int kept);

}  // namespace driver_feature::host

#endif  // HOST_BASE_CHILD_SETTING_H_

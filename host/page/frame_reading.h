// Frames as they come through a socket.
#ifndef HOST_PAGE_FRAME_READING_H_
#define HOST_PAGE_FRAME_READING_H_

#include <optional>
#include <string>

namespace driver_feature::page {

// Waits for the next frame and returns it. Nothing when the other end is closed,
// or when the bytes are not a frame. `arrived` keeps what has come of later ones.
std::optional<std::string> nextFrame(int socket, std::string& arrived);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_FRAME_READING_H_

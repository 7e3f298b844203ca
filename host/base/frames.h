// Texts through a socket, one after the other.
#ifndef HOST_BASE_FRAMES_H_
#define HOST_BASE_FRAMES_H_

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature::host {

// The text after its length and a colon.
std::string frame(std::string_view text);

// Takes the first whole text out of what has arrived. Nothing as long as there is
// none. `isMalformed` becomes true when what has arrived is not such a text.
std::optional<std::string> takeFrame(std::string& arrived, bool& isMalformed);

// Waits for the next whole text from a socket and returns it. Nothing when the other
// end is closed, or when what has arrived is not such a text. `arrived` keeps what has
// come of later ones.
std::optional<std::string> nextFrame(int socket, std::string& arrived);

}  // namespace driver_feature::host

#endif  // HOST_BASE_FRAMES_H_

// Texts through a socket, one after the other.
#ifndef PROGRAMS_PRINTER_FRAMES_H_
#define PROGRAMS_PRINTER_FRAMES_H_

#include <optional>
#include <string>
#include <string_view>

namespace driver_feature::printer {

// The text after its length and a colon.
std::string frame(std::string_view text);

// Takes the first whole text out of what has arrived. Nothing as long as there is
// none. `isMalformed` becomes true when what has arrived is not such a text.
std::optional<std::string> takeFrame(std::string& arrived, bool& isMalformed);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_FRAMES_H_

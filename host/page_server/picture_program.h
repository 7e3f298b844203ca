// The PostScript program that shows what settings do to a page.
#ifndef HOST_PAGE_SERVER_PICTURE_PROGRAM_H_
#define HOST_PAGE_SERVER_PICTURE_PROGRAM_H_

#include <string_view>

namespace driver_feature::page_server {

// Runs the file settings.ps on a device that notes what is asked of it, draws a
// sample page, and prints lines "DF NAME<tab>VALUE": each entry of the page device
// that the settings have made, then "DF Size<tab>[WIDTH HEIGHT]" and, if the
// settings have failed, "DF Failed<tab>NAME of the error and of the operator".
extern const std::string_view kPictureProgram;

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_PICTURE_PROGRAM_H_

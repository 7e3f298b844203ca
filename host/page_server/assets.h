// The files of the page, which are built into the program.
#ifndef HOST_PAGE_SERVER_ASSETS_H_
#define HOST_PAGE_SERVER_ASSETS_H_

#include <string_view>

namespace driver_feature::page_server {

struct Asset {
  std::string_view name;
  std::string_view type;  // For the field Content-Type.
  std::string_view text;
};

// Null when there is no file of that name in the folder assets.
const Asset* findAsset(std::string_view name);

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_ASSETS_H_

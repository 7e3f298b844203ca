// Names that cannot be guessed.
#ifndef HOST_PAGE_SERVER_RANDOM_NAME_H_
#define HOST_PAGE_SERVER_RANDOM_NAME_H_

#include <string>

#include "host/base/result.h"

namespace driver_feature::page_server {

// 32 digits and small letters from the system's source of random numbers. Problem:
// kNotLoaded when it gives none.
host::Result<std::string> randomName();

}  // namespace driver_feature::page_server

#endif  // HOST_PAGE_SERVER_RANDOM_NAME_H_

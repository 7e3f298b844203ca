#include "host/base/language.h"

#include <clocale>
#include <cstdlib>

namespace driver_feature::host {

void useEnglish() {
  std::setlocale(LC_MESSAGES, "C");
  ::setenv("LC_MESSAGES", "C", 1);
}

}  // namespace driver_feature::host

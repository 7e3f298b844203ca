// Loaded into a program by LD_PRELOAD: makes its process one whose host has
// taken the locale of the environment.

#include <clocale>

namespace {

__attribute__((constructor)) void takeLocale() {
  std::setlocale(LC_ALL, "");
}

}  // namespace

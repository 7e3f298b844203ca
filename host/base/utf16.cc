#include "host/base/utf16.h"

namespace driver_feature::host {

namespace {

// Characters beyond the basic plane take four bytes, and two units.
std::size_t unitsOf(char byte) {
  if (continuesCharacter(byte)) return 0;
  return static_cast<unsigned char>(byte) >= 0xF0U ? 2 : 1;
}

}  // namespace

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::size_t utf16Units(std::string_view utf8) {
  std::size_t units = 0;
  for (const char byte : utf8) units += unitsOf(byte);
  return units;
}

std::size_t bytesBeforeUnits(std::string_view utf8, std::size_t units) {
  std::size_t at = 0;
  for (std::size_t passed = 0; at < utf8.size(); ++at) {
    passed += unitsOf(utf8[at]);
    if (passed > units) return at;
  }
  return at;
}

}  // namespace driver_feature::host

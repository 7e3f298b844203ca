#include "programs/driver_feature/shell/wide_text.h"

#include <climits>
#include <cwchar>

namespace driver_feature::cli {

namespace {

// Byte N that is not a character is kept as kLoneByte + N: code points that no
// valid text has.
constexpr wchar_t kLoneByte = 0xDC00;

bool isLoneByte(wchar_t character) {
  return character >= kLoneByte + 0x80 && character <= kLoneByte + 0xFF;
}

wchar_t takeByte(std::string& bytes) {
  const auto byte = static_cast<unsigned char>(bytes.front());
  bytes.erase(0, 1);
  return static_cast<wchar_t>(kLoneByte + byte);
}

}  // namespace

std::optional<wchar_t> takeCharacter(std::string& bytes) {
  wchar_t character = 0;
  std::mbstate_t state{};
  const std::size_t length = std::mbrtowc(&character, bytes.data(), bytes.size(), &state);
  if (length == static_cast<std::size_t>(-2)) return std::nullopt;
  if (length == static_cast<std::size_t>(-1)) return takeByte(bytes);
  bytes.erase(0, length == 0 ? 1 : length);
  return character;
}

std::wstring toWide(std::string_view bytes) {
  std::wstring text;
  std::string rest(bytes);
  while (!rest.empty()) {
    const auto character = takeCharacter(rest);
    text += character ? *character : takeByte(rest);
  }
  return text;
}

std::string toBytes(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t character : text) {
    char buffer[MB_LEN_MAX];
    std::mbstate_t state{};
    const std::size_t length = std::wcrtomb(buffer, character, &state);
    if (isLoneByte(character)) {
      bytes += static_cast<char>(character - kLoneByte);
    } else if (length != static_cast<std::size_t>(-1)) {
      bytes.append(buffer, length);
    }
  }
  return bytes;
}

}  // namespace driver_feature::cli

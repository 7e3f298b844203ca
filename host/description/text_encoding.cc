#include "host/description/text_encoding.h"

#include <iconv.h>

#include <array>
#include <cstddef>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

std::string convertToUtf8(const std::string& bytes, const char* encoding) {
  iconv_t converter = iconv_open("UTF-8", encoding);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the failure value of iconv_open().
  if (converter == reinterpret_cast<iconv_t>(-1)) return bytes;
  std::string input = bytes;
  char* next = input.data();
  std::size_t left = input.size();
  std::string output;
  std::array<char, 4096> buffer{};
  bool failed = false;
  while (left > 0 && !failed) {
    char* end = buffer.data();
    std::size_t room = buffer.size();
    const std::size_t before = left;
    iconv(converter, &next, &left, &end, &room);
    output.append(buffer.data(), buffer.size() - room);
    failed = left == before;
  }
  iconv_close(converter);
  return failed ? bytes : output;
}

}  // namespace

std::string decodeText(const std::string& bytes, const std::string& encoding) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return bytes.substr(3);
  const bool marked = bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
  if (marked) return convertToUtf8(bytes, "UTF-16");
  if (encoding.empty() || toLower(encoding) == "utf-8") return bytes;
  return convertToUtf8(bytes, encoding.c_str());
}

std::string declaredEncoding(const std::string& bytes) {
  if (!bytes.starts_with("<?xml")) return "";
  const std::string declaration = bytes.substr(0, bytes.find("?>"));
  const std::size_t word = declaration.find("encoding");
  if (word == std::string::npos) return "";
  const std::size_t open = declaration.find_first_of("\"'", word);
  if (open == std::string::npos) return "";
  const std::size_t close = declaration.find(declaration[open], open + 1);
  if (close == std::string::npos) return "";
  return declaration.substr(open + 1, close - open - 1);
}

}  // namespace driver_feature::host

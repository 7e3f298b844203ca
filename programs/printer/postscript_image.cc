#include "programs/printer/postscript_image.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "host/base/descriptor.h"

namespace driver_feature::printer {

namespace {

constexpr std::size_t kEnough = 65536;
constexpr std::size_t kLineLength = 75;
constexpr std::size_t kLongestRun = 128;

std::string number(double value) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 2);
  return {text.data(), end.ptr};
}

// How many bytes at the beginning are the same, up to a longest run.
std::size_t sameBytes(std::string_view bytes) {
  std::size_t count = 1;
  while (count < bytes.size() && count < kLongestRun && bytes[count] == bytes[0]) ++count;
  return count;
}

}  // namespace

void DocumentWriter::put(std::string_view bytes) {
  waiting_ += bytes;
  if (waiting_.size() < kEnough) return;
  hasFailed_ = hasFailed_ || !host::writeAll(descriptor_, waiting_);
  waiting_.clear();
}

bool DocumentWriter::finish() {
  hasFailed_ = hasFailed_ || !host::writeAll(descriptor_, waiting_);
  waiting_.clear();
  return !hasFailed_;
}

void Ascii85::put(std::string_view bytes) {
  for (const char byte : bytes) {
    group_ += byte;
    if (group_.size() == 4) putGroup(group_);
  }
}

// Up to four bytes; the last group of the data may have fewer.
void Ascii85::putGroup(std::string_view group) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value = value << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
  }
  if (value == 0 && group.size() == 4) {
    line_ += 'z';
  } else {
    std::array<char, 5> digits{};
    for (std::size_t i = 5; i-- > 0; value /= 85) digits[i] = static_cast<char>('!' + value % 85);
    line_.append(digits.data(), group.size() + 1);
  }
  group_.clear();
  if (line_.size() < kLineLength) return;
  // A line that begins with "%" could be taken for a comment of the structure.
  if (line_.starts_with('%')) line_.insert(0, " ");
  writer_.put(line_ + "\n");
  line_.clear();
}

void Ascii85::finish() {
  if (!group_.empty()) putGroup(std::string(group_));
  if (line_.starts_with('%')) line_.insert(0, " ");
  writer_.put(line_ + "~>\n");
  line_.clear();
}

std::string runLengths(std::string_view bytes) {
  std::string result;
  std::string literal;
  const auto putLiteral = [&] {
    if (literal.empty()) return;
    result += static_cast<char>(literal.size() - 1);
    result += literal;
    literal.clear();
  };
  while (!bytes.empty()) {
    const std::size_t same = sameBytes(bytes);
    if (same > 2) {
      putLiteral();
      result += static_cast<char>(257 - same);
      result += bytes[0];
      bytes.remove_prefix(same);
      continue;
    }
    literal += bytes[0];
    bytes.remove_prefix(1);
    if (literal.size() == kLongestRun) putLiteral();
  }
  putLiteral();
  return result;
}

std::string imageOperator(const ImageForm& form) {
  const std::string width = std::to_string(form.width);
  const std::string height = std::to_string(form.height);
  const char* space = form.components == 4   ? "/DeviceCMYK"
                      : form.components == 3 ? "/DeviceRGB"
                                             : "/DeviceGray";
  std::string decode;
  for (unsigned i = 0; i < form.components; ++i) decode += form.isInverted ? "1 0 " : "0 1 ";
  decode.pop_back();
  return std::string(space) + " setcolorspace\n<< /ImageType 1 /Width " + width + " /Height " +
         height + " /BitsPerComponent " + std::to_string(form.bits) + " /Decode [" + decode +
         "] /ImageMatrix [" + width + " 0 0 -" + height + " 0 " + height +
         "] /DataSource currentfile /ASCII85Decode filter /" + form.decoder + " filter >> image\n";
}

std::string documentBegin() {
  return "%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Pages: (atend)\n%%EndComments\n";
}

std::string pageBegin(int page, double width, double height) {
  const std::string ordinal = std::to_string(page);
  return "%%Page: " + ordinal + " " + ordinal + "\n%%PageBoundingBox: 0 0 " +
         std::to_string(std::lround(std::ceil(width))) + " " +
         std::to_string(std::lround(std::ceil(height))) + "\nsave\n";
}

std::string scaling(double width, double height) {
  return number(width) + " " + number(height) + " scale\n";
}

std::string translation(double x, double y) {
  return number(x) + " " + number(y) + " translate\n";
}

std::string pageEnd() {
  return "restore\nshowpage\n";
}

std::string documentEnd(int pages) {
  return "%%Trailer\n%%Pages: " + std::to_string(pages) + "\n%%EOF\n";
}

}  // namespace driver_feature::printer

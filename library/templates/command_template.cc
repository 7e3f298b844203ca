#include "templates/command_template.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "templates/conversion.h"

namespace driver_feature {

namespace {

// Appends the value as the conversion at the front of `rest` shows it, and
// removes the conversion. Returns false if there is none or it does not fit.
template <class Value>
bool appendConverted(std::string_view& rest, const Value& value, std::string& output) {
  const auto conversion = takeConversion(rest);
  if (!conversion) return false;
  const auto piece = convert(*conversion, value);
  if (!piece) return false;
  output.append(*piece);
  return true;
}

std::size_t lengthOf(const char* begin, const char* end) {
  return static_cast<std::size_t>(end - begin);
}

// As append(), but a refused template leaves what was written before.
template <class Value>
bool appendUnlessRefused(std::string_view commandTemplate, const Value& value,
                         std::string& output) {
  bool converted = false;
  const char* at = commandTemplate.data();
  const char* const end = at + commandTemplate.size();
  while (at != end) {
    const auto* percent = static_cast<const char*>(std::memchr(at, '%', lengthOf(at, end)));
    if (percent == nullptr) {
      output.append(at, lengthOf(at, end));
      break;
    }
    const char* next = percent + 1;
    while (next != end && *next == '%') ++next;
    // Each two signs in a row are one of the text, and go with what is before.
    const std::size_t signs = lengthOf(percent, next);
    output.append(at, lengthOf(at, percent) + signs / 2);
    at = next;
    if (signs % 2 == 0) continue;
    std::string_view rest(next, lengthOf(next, end));
    if (converted || !appendConverted(rest, value, output)) return false;
    converted = true;
    at = rest.data();
  }
  return true;
}

// An empty text may be one of a null pointer.
char* copyTo(char* to, const char* from, std::size_t size) {
  if (size != 0) std::memcpy(to, from, size);
  return to + size;
}

// Writes a text in a template that lays out nothing, which nearly every one does:
// it has no other conversion than one "%s". The end of what was written, with
// `place` at the text if there is a conversion; null for another template. There
// must be room for the template and the text.
char* writePlain(std::string_view commandTemplate, std::string_view text, char* to, char*& place) {
  bool converted = false;
  const char* at = commandTemplate.data();
  const char* const end = at + commandTemplate.size();
  while (at != end) {
    const auto* percent = static_cast<const char*>(std::memchr(at, '%', lengthOf(at, end)));
    if (percent == nullptr) return copyTo(to, at, lengthOf(at, end));
    const char* next = percent + 1;
    while (next != end && *next == '%') ++next;
    const std::size_t signs = lengthOf(percent, next);
    to = copyTo(to, at, lengthOf(at, percent) + signs / 2);
    at = next;
    if (signs % 2 == 0) continue;
    if (converted || at == end || *at != 's') return nullptr;
    converted = true;
    place = to;
    to = copyTo(to, text.data(), text.size());
    ++at;
  }
  return to;
}

// As append(). False for a template that lays out more than the text.
bool appendPlain(std::string_view commandTemplate, std::string_view text, std::string& output) {
  const std::size_t before = output.size();
  output.resize(before + commandTemplate.size() + text.size());
  char* const begin = output.data();
  char* place = nullptr;
  const char* const end = writePlain(commandTemplate, text, begin + before, place);
  output.resize(end != nullptr ? lengthOf(begin, end) : before);
  return end != nullptr;
}

template <class Value>
bool append(std::string_view commandTemplate, const Value& value, std::string& output) {
  if constexpr (std::is_same_v<Value, std::string_view>) {
    if (appendPlain(commandTemplate, value, output)) return true;
  }
  const std::size_t before = output.size();
  if (appendUnlessRefused(commandTemplate, value, output)) return true;
  output.resize(before);
  return false;
}

template <class Value>
bool format(std::string_view commandTemplate, const Value& value, std::string& output) {
  std::string text;
  if (!append(commandTemplate, value, text)) return false;
  output = std::move(text);
  return true;
}

}  // namespace

bool formatCommand(std::string_view commandTemplate, std::string_view value, std::string& output) {
  return format(commandTemplate, value, output);
}

bool formatCommand(std::string_view commandTemplate, int value, std::string& output) {
  return format(commandTemplate, value, output);
}

bool formatCommand(std::string_view commandTemplate, double value, std::string& output) {
  return format(commandTemplate, value, output);
}

bool appendCommand(std::string_view commandTemplate, std::string_view value, std::string& output) {
  return append(commandTemplate, value, output);
}

bool appendCommand(std::string_view commandTemplate, int value, std::string& output) {
  return append(commandTemplate, value, output);
}

bool appendCommand(std::string_view commandTemplate, double value, std::string& output) {
  return append(commandTemplate, value, output);
}

// The place of the value in the literal text, and that text.
std::string readPlainTemplate(std::string_view commandTemplate) {
  std::string read(sizeof(std::uint32_t) + commandTemplate.size(), '\0');
  char* const literal = read.data() + sizeof(std::uint32_t);
  char* place = nullptr;
  const char* const end = writePlain(commandTemplate, {}, literal, place);
  if (end == nullptr || place == nullptr) return {};
  const auto before = static_cast<std::uint32_t>(place - literal);
  std::memcpy(read.data(), &before, sizeof before);
  read.resize(lengthOf(read.data(), end));
  return read;
}

void appendPlainCommand(std::string_view plainTemplate, std::string_view value,
                        std::string& output) {
  std::uint32_t before = 0;
  std::memcpy(&before, plainTemplate.data(), sizeof before);
  plainTemplate.remove_prefix(sizeof before);
  output.append(plainTemplate.substr(0, before)).append(value).append(plainTemplate.substr(before));
}

}  // namespace driver_feature

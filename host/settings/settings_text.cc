#include "host/settings/settings_text.h"

#include <optional>

#include "host/base/text.h"

namespace driver_feature::host {

namespace {

constexpr std::string_view kBlanks = " \t\r\f\v";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kDigits = "0123456789abcdef";

struct Escape {
  char letter;
  char character;
};

constexpr Escape kEscapes[] = {
    {'\\', '\\'}, {'s', ' '}, {'t', '\t'}, {'n', '\n'}, {'r', '\r'},
};

std::string_view trim(std::string_view text) {
  return trimmed(text, kBlanks);
}

std::string escapeByte(char byte) {
  for (const Escape& escape : kEscapes) {
    if (escape.character == byte) return {'\\', escape.letter};
  }
  return escapedByte(byte);
}

// `special` are the characters that have a meaning in this place. A byte-order
// mark in front would be dropped from the first line of a file.
std::string escape(std::string_view text, std::string_view special) {
  std::string escaped;
  if (text.starts_with(kByteOrderMark)) {
    for (const char byte : kByteOrderMark) escaped += escapeByte(byte);
    text.remove_prefix(kByteOrderMark.size());
  }
  for (const std::string_view character : splitCharacters(text)) {
    const char byte = character.front();
    const auto code = static_cast<unsigned char>(byte);
    const bool atEdge = character.data() == text.data() || &character.back() == &text.back();
    const bool plain = code >= 0x20 && code < 0x7F && byte != '\\' && !(byte == ' ' && atEdge) &&
                       special.find(byte) == std::string_view::npos;
    escaped += plain || character.size() > 1 ? std::string(character) : escapeByte(byte);
  }
  return escaped;
}

std::optional<unsigned> digitOf(char character) {
  const char lower =
      character >= 'A' && character <= 'F' ? static_cast<char>(character - 'A' + 'a') : character;
  const std::size_t digit = kDigits.find(lower);
  if (digit == std::string_view::npos) return std::nullopt;
  return static_cast<unsigned>(digit);
}

// Takes the escape after a backslash off the front of `rest`.
bool takeEscape(std::string_view& rest, std::string& text) {
  if (rest.empty()) return false;
  for (const Escape& escape : kEscapes) {
    if (escape.letter != rest.front()) continue;
    text += escape.character;
    rest.remove_prefix(1);
    return true;
  }
  if (rest.front() != 'x' || rest.size() < 3) return false;
  const auto high = digitOf(rest[1]);
  const auto low = digitOf(rest[2]);
  if (!high || !low) return false;
  text += static_cast<char>(*high * 16U + *low);
  rest.remove_prefix(3);
  return true;
}

Result<> unescape(std::string_view escaped, std::string& text) {
  std::string_view rest = escaped;
  while (!rest.empty()) {
    const char character = rest.front();
    rest.remove_prefix(1);
    if (character != '\\') {
      text += character;
    } else if (!takeEscape(rest, text)) {
      return refused("there is no escape \"\\" +
                     std::string(rest.substr(0, rest.starts_with('x') ? 3 : 1)) +
                     "\"; write \\\\, \\s, \\t, \\n, \\r or \\xNN, and a backslash as \\\\");
    }
  }
  return {};
}

class Reader {
 public:
  SettingsText read(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
      ++line_;
      const std::size_t end = text.find('\n');
      readLine(trim(text.substr(0, end)));
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return std::move(result_);
  }

 private:
  void readLine(std::string_view line) {
    if (line.empty() || line.front() == '#') return;
    const Result<> read = line.front() == '[' ? readRecord(line) : readSetting(line);
    if (!read) result_.refusals.push_back(problemAt(line_, read.error().text));
  }

  Result<> readRecord(std::string_view line) {
    inRecord_ = true;
    const std::size_t end = line.find(']');
    SettingsRecord record;
    record.line = line_;
    const std::string_view rest =
        end == std::string_view::npos ? std::string_view() : trim(line.substr(end + 1));
    record.isNone = rest == "none";
    const bool isRecord = end != std::string_view::npos && (rest.empty() || record.isNone);
    Result<> read = isRecord ? unescape(trim(line.substr(1, end - 1)), record.group)
                             : refused(
                                   "a record begins with [GROUP]; write that, or \"[GROUP] "
                                   "none\" for no records");
    isReadable_ = read.has_value();
    if (isReadable_) result_.records.push_back(record);
    return read;
  }

  Result<> readSetting(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
      return refused("there is no equals sign; write NAME=VALUE, or # before a comment");
    }
    SettingsLine setting{line_, {}};
    auto& [name, value] = setting.setting;
    if (Result<> read = unescape(trim(line.substr(0, equals)), name); !read) return read;
    if (name.empty()) {
      return refused("there is no name before the equals sign; write NAME=VALUE");
    }
    if (Result<> read = unescape(trim(line.substr(equals + 1)), value); !read) return read;
    if (!inRecord_) {
      result_.features.push_back(setting);
    } else if (isReadable_) {
      result_.records.back().members.push_back(setting);
    }
    return {};
  }

  SettingsText result_;
  int line_ = 0;
  bool inRecord_ = false;
  bool isReadable_ = false;  // The record that the lines belong to.
};

}  // namespace

SettingsText parseSettings(std::string_view text) {
  return Reader().read(text);
}

std::string settingLine(const Setting& setting) {
  return escape(setting.name, "=#[") + "=" + escape(setting.value, "") + "\n";
}

std::string recordLine(const std::string& group) {
  return "[" + escape(group, "]") + "]\n";
}

std::string noRecordsLine(const std::string& group) {
  return "[" + escape(group, "]") + "] none\n";
}

}  // namespace driver_feature::host

#include "host/page/command_line.h"

#include <algorithm>
#include <string_view>

#include "host/page/shown_text.h"
#include "host/settings/settings_text.h"

namespace driver_feature::page {

namespace {

bool isPlain(char character) {
  constexpr std::string_view kPlain = "_./:=,+@%-";
  const bool isLetterOrDigit = (character >= 'a' && character <= 'z') ||
                               (character >= 'A' && character <= 'Z') ||
                               (character >= '0' && character <= '9');
  return isLetterOrDigit || kPlain.find(character) != std::string_view::npos;
}

// As a word of a POSIX shell.
std::string quoted(const std::string& text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), isPlain)) return text;
  std::string word = "'";
  for (const char character : text) {
    word += character == '\'' ? std::string("'\\''") : std::string(1, character);
  }
  return word + "'";
}

// A file's name that is not taken for an option.
std::string quotedFile(const std::string& file) {
  return quoted(file.starts_with('-') && file != "-" ? "./" + file : file);
}

// Whether it can be a word that is copied from a page.
bool isWord(const std::string& text) {
  const bool hasControl = std::any_of(text.begin(), text.end(), [](char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
  });
  return !hasControl && shown(text) == text;
}

bool fitsOption(const host::Setting& setting) {
  const std::string& name = setting.name;
  return isWord(name) && isWord(setting.value) && !name.empty() && !name.starts_with('-') &&
         name.find('=') == std::string::npos;
}

}  // namespace

EmitSettings emitSettingsOf(const PresentSettings& present) {
  EmitSettings settings;
  // A settings file is loaded before any option is set, so the order would change.
  if (std::ranges::all_of(present.settings, fitsOption)) {
    settings.options = present.settings;
  } else {
    for (const host::Setting& setting : present.settings) settings.file += settingLine(setting);
  }
  for (const PageRecord& record : present.records) {
    settings.file += host::recordLine(record.group);
    for (const host::Setting& member : record.members) settings.file += settingLine(member);
  }
  return settings;
}

std::string commandLine(const CommandFrame& frame, const PresentSettings& present) {
  const EmitSettings settings = emitSettingsOf(present);
  std::string command = "driver-feature emit --to ps ";
  if (!frame.library.empty()) command += "--library " + quotedFile(frame.library) + " ";
  for (const std::string& routines : frame.routines) {
    command += "--callbacks " + quotedFile(routines) + " ";
  }
  command += quotedFile(frame.description);
  for (const auto& [name, value] : settings.options) {
    std::string word = name;
    word.append("=").append(value);
    command.append(" -o ").append(page::quoted(word));
  }
  if (settings.file.empty()) return command;
  return command + " --settings /dev/stdin <<'END'\n" + settings.file + "END\n";
}

}  // namespace driver_feature::page

#include "host/check/pjl_words.h"

#include <algorithm>
#include <set>
#include <string>

#include "host/base/text.h"

namespace driver_feature::check {

namespace {

constexpr std::string_view kPjlBlanks = " \t\r";

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kPjlBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kPjlBlanks) + 1);  // 0 for blanks alone.
}

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) {
    return (character >= ' ' && character <= '~') || character == '\t' || character == '\r';
  });
}

bool isPjlCommand(std::string_view command) {
  constexpr std::string_view kPrefix = "@PJL";
  return command.starts_with(kPrefix) && (command.size() == kPrefix.size() ||
                                          kPjlBlanks.find(command[4]) != std::string_view::npos);
}

bool looksLikePjl(std::string_view command) {
  static const std::set<std::string_view> kWords = {
      "COMMENT", "DEFAULT", "DINQUIRE",   "DMCMD",   "DMINFO",  "ECHO",      "ENTER",
      "EOJ",     "INFO",    "INITIALIZE", "INQUIRE", "JOB",     "OPMSG",     "PJL",
      "RDYMSG",  "RESET",   "SET",        "STMSG",   "USTATUS", "USTATUSOFF"};
  if (command.starts_with('@')) return true;
  const auto isOfWord = [](char character) {
    return (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9');
  };
  const auto* end = std::find_if_not(command.begin(), command.end(), isOfWord);
  const std::string_view word = command.substr(0, static_cast<std::size_t>(end - command.begin()));
  if (word.empty()) return false;
  command.remove_prefix(word.size());
  const bool isAlone =
      command.empty() || kPjlBlanks.find(command.front()) != std::string_view::npos;
  return (isAlone && kWords.contains(word)) || withoutBlanks(command).starts_with('=');
}

bool entersLanguage(std::string_view command) {
  std::string words;
  for (const char character : command) {
    if (kPjlBlanks.find(character) == std::string_view::npos) words += host::toLower(character);
  }
  return words.starts_with("@pjlenterlanguage");
}

}  // namespace driver_feature::check

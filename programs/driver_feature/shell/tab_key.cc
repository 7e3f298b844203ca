#include "programs/driver_feature/shell/tab_key.h"

#include <algorithm>

#include "host/base/text.h"
#include "programs/driver_feature/shell/completion.h"
#include "programs/driver_feature/shell/file_names.h"
#include "programs/driver_feature/shell/words.h"

namespace driver_feature::cli {

namespace {

constexpr std::size_t kChoiceGap = 2;

// What all have in common: whole characters, not parts of one.
std::string commonBegin(const std::vector<std::string>& words) {
  std::string common;
  for (const std::string_view character : host::splitCharacters(words.front())) {
    const std::string longer = common + std::string(character);
    const auto goesOn = [&longer](const std::string& word) { return word.starts_with(longer); };
    if (!std::all_of(words.begin(), words.end(), goesOn)) break;
    common = longer;
  }
  return common;
}

// The beginning of a word, which may go on. Single quotes can hold no single quote
// and no escape.
std::string openWord(const std::string& text, char quote) {
  if (quote == 0 && (text.empty() || quoteWord(text) == text)) return text;
  const bool fitsSingle = text.find('\'') == std::string::npos && host::printable(text) == text;
  return quote == '\'' && fitsSingle ? "'" + text : "\"" + escapeWord(text);
}

std::string wholeWord(const std::string& text, char quote) {
  const std::string open = openWord(text, quote);
  const bool quoted = open.starts_with('"') || open.starts_with('\'');
  return (quoted ? open + open.front() : open) + " ";
}

}  // namespace

TabStep pressTab(const Shell& shell, std::string_view line) {
  const UnfinishedLine unfinished = splitUnfinished(line);
  const char quote = unfinished.quote;
  Proposals proposals = complete(shell, line);
  const bool files = proposals.words.empty() && proposals.files;
  if (files) proposals.words = filesThatBeginWith(unfinished.word);
  const std::vector<std::string>& words = proposals.words;
  TabStep step{unfinished.begin, std::string(line.substr(unfinished.begin)), {}};
  if (words.empty()) return step;
  const std::string common = commonBegin(words);
  if (words.size() == 1) {
    const bool unfinishedWord = proposals.unfinished || (files && common.ends_with('/'));
    step.written = unfinishedWord ? openWord(common, quote) : wholeWord(common, quote);
    return step;
  }
  if (common.size() > unfinished.word.size()) step.written = openWord(common, quote);
  for (const std::string& word : words) {
    step.choices.push_back(files ? host::printable(lastPart(word)) : quoteWord(word));
  }
  return step;
}

std::string layOutChoices(const std::vector<std::string>& choices, std::size_t width) {
  std::size_t column = 0;
  for (const std::string& choice : choices) {
    column = std::max(column, host::displayWidth(choice) + kChoiceGap);
  }
  const std::size_t columns = std::max<std::size_t>(column == 0 ? 0 : (width - 1) / column, 1);
  const std::size_t rows = (choices.size() + columns - 1) / columns;
  std::string text;
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t i = row; i < choices.size(); i += rows) {
      text += choices[i] + std::string(column - host::displayWidth(choices[i]), ' ');
    }
    text += "\n";
  }
  return text;
}

}  // namespace driver_feature::cli

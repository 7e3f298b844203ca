#include "programs/driver_feature/shell/words.h"

#include <charconv>
#include <optional>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kWordBlanks = " \t";

bool isBlank(char character) {
  return kWordBlanks.find(character) != std::string_view::npos;
}

struct Escape {
  char letter;
  char character;
};

constexpr Escape kEscapes[] = {{'n', '\n'}, {'r', '\r'},  {'t', '\t'}, {'e', '\x1B'},
                               {' ', ' '},  {'\t', '\t'}, {'"', '"'},  {'\'', '\''},
                               {'#', '#'},  {'\\', '\\'}};

std::optional<char> characterOf(char letter) {
  for (const Escape& escape : kEscapes) {
    if (escape.letter == letter) return escape.character;
  }
  return std::nullopt;
}

std::optional<char> byteOf(std::string_view digits) {
  unsigned value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  const bool whole = digits.size() == 2 && result.ptr == digits.data() + digits.size();
  if (!whole || result.ec != std::errc()) return std::nullopt;
  return static_cast<char>(value);
}

class Splitter {
 public:
  explicit Splitter(std::string_view line) : rest_(line), length_(line.size()) {}

  // Reads the next word. False at the end of the line and after a refusal.
  bool next(std::string& word) {
    skipBlanks();
    begin_ = length_ - rest_.size();
    if (rest_.empty() || rest_.front() == '#') return false;
    while (!rest_.empty() && result_ && (quote_ != 0 || !isBlank(rest_.front()))) take(word);
    closed_ = !rest_.empty();
    if (quote_ != 0 && result_) {
      result_ = host::refused(std::string("a quote is not closed; end the word with ") + quote_);
    }
    return result_.has_value();
  }

  const host::Result<>& result() const { return result_; }
  bool isClosed() const { return closed_; }  // A blank ends the last word.
  std::size_t begin() const { return begin_; }
  char quote() const { return quote_; }

 private:
  void skipBlanks() {
    const std::size_t begin = rest_.find_first_not_of(kWordBlanks);
    rest_.remove_prefix(begin == std::string_view::npos ? rest_.size() : begin);
  }

  void take(std::string& word) {
    const char character = rest_.front();
    rest_.remove_prefix(1);
    if (character == '\\' && quote_ != '\'') return takeEscape(word);
    if (character == quote_) {
      quote_ = 0;
    } else if (quote_ == 0 && (character == '"' || character == '\'')) {
      quote_ = character;
    } else {
      word += character;
    }
  }

  void takeEscape(std::string& word) {
    const bool isByte = rest_.starts_with('x');
    const std::string_view written = rest_.substr(0, isByte ? 3 : 1);
    const auto character = isByte            ? byteOf(written.substr(1))
                           : written.empty() ? std::nullopt
                                             : characterOf(written.front());
    if (!character) {
      result_ = host::refused("there is no escape \"\\" + std::string(written) +
                              "\"; give \\n, \\r, \\t, \\e, \\xNN or \\\\");
      rest_ = {};
      return;
    }
    rest_.remove_prefix(written.size());
    word += *character;
  }

  std::string_view rest_;
  std::size_t length_;
  std::size_t begin_ = 0;  // Of the last word.
  char quote_ = 0;
  bool closed_ = true;
  host::Result<> result_;
};

bool isPlain(std::string_view text) {
  return !text.empty() && text.front() != '#' &&
         text.find_first_of(" \t\"'\\") == std::string_view::npos && escapeWord(text) == text;
}

}  // namespace

host::Result<> splitWords(std::string_view line, Words& words) {
  words.clear();
  Splitter splitter(line);
  for (std::string word; splitter.next(word); word.clear()) words.push_back(word);
  return splitter.result();
}

UnfinishedLine splitUnfinished(std::string_view line) {
  UnfinishedLine unfinished;
  Splitter splitter(line);
  std::string word;
  while (splitter.next(word)) {
    unfinished.before.push_back(word);
    unfinished.begin = splitter.begin();
    word.clear();
  }
  if (!splitter.result()) {
    unfinished.word = word;
  } else if (!splitter.isClosed()) {
    unfinished.word = unfinished.before.back();
    unfinished.before.pop_back();
    return unfinished;
  }
  unfinished.begin = splitter.result() ? line.size() : splitter.begin();
  unfinished.quote = splitter.quote();
  return unfinished;
}

std::string escapeWord(std::string_view text) {
  std::string written;
  for (const std::string_view character : host::splitCharacters(text)) {
    const auto code = static_cast<unsigned char>(character.front());
    const bool isForeign = code >= 0x80 && character.size() == 1;
    if (character == "\"" || character == "\\") {
      written += '\\';
      written += character;
    } else if (code == 0x1B) {
      written += "\\e";
    } else if (isForeign) {
      written += host::escapedByte(character.front());
    } else {
      written += host::printable(character);
    }
  }
  return written;
}

std::string quoteWord(std::string_view text) {
  return isPlain(text) ? std::string(text) : "\"" + escapeWord(text) + "\"";
}

}  // namespace driver_feature::cli

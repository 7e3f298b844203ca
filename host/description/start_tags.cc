#include "host/description/start_tags.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace driver_feature::host {

namespace {

// Walks over the text and keeps track of its position.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  char front() const { return rest_.front(); }
  bool startsWith(std::string_view word) const { return rest_.starts_with(word); }
  Position position() const { return position_; }

  std::string_view take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    for (const char byte : taken) advance(byte);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  // Up to the first of `ends`, or to the end of the text.
  std::string_view takeUntilOneOf(std::string_view ends) {
    return take(std::min(rest_.find_first_of(ends), rest_.size()));
  }

  // Up to `end`, or to the end of the text.
  std::string_view takeUntil(std::string_view end) {
    return take(std::min(rest_.find(end), rest_.size()));
  }

  void skipPast(std::string_view end) {
    takeUntil(end);
    take(end.size());
  }

  void skipBlanks() { take(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size())); }

 private:
  void advance(char byte) {
    if (byte == '\n') {
      position_ = {position_.line + 1, 1};
    } else if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) {
      ++position_.column;
    }
  }

  std::string_view rest_;
  Position position_{1, 1};
};

// Past the closing quotation mark. Returns what is between the two.
std::string_view takeQuoted(Scanner& scanner) {
  const std::string_view quote = scanner.take(1);
  const std::string_view inside = scanner.takeUntilOneOf(quote);
  scanner.take(1);
  return inside;
}

// A document type may hold comments, quoted texts and, between brackets,
// declarations that have their own ends.
void skipDocumentType(Scanner& scanner) {
  int depth = 0;
  while (!scanner.atEnd()) {
    scanner.takeUntilOneOf("\"'[]<>");
    if (scanner.atEnd()) return;
    if (scanner.startsWith("<!--")) {
      scanner.skipPast("-->");
    } else if (scanner.startsWith("<?")) {
      scanner.skipPast("?>");
    } else if (scanner.front() == '"' || scanner.front() == '\'') {
      takeQuoted(scanner);
    } else {
      const char mark = scanner.take(1).front();
      if (mark == '<' || mark == '[') ++depth;
      if (mark == '>' || mark == ']') --depth;
      if (depth == 0) return;
    }
  }
}

void takeAttribute(Scanner& scanner, StartTag& tag) {
  AttributePlace place;
  place.name = scanner.position();
  const std::string name(scanner.takeUntilOneOf(" \t\r\n="));
  scanner.takeUntilOneOf("\"'");
  if (!scanner.atEnd()) {
    place.value = scanner.position();
    ++place.value.column;
    place.source = takeQuoted(scanner);
  }
  tag.attributes.emplace(name, place);
}

// Reads a document's tags one after another.
class TagReader {
 public:
  explicit TagReader(std::string_view text) : scanner_(text) {}

  std::vector<StartTag> read() {
    while (!scanner_.atEnd()) {
      takeText("<");
      if (scanner_.atEnd()) break;
      if (!takeMarkup()) takeStartTag();
    }
    return std::move(tags_);
  }

  // Those of the part that was read.
  std::vector<XmlComment> takeComments() { return std::move(comments_); }

 private:
  // Notes the text up to `end`, unless it is blanks alone.
  void takeText(std::string_view end) {
    scanner_.skipBlanks();
    const Position position = scanner_.position();
    std::string_view text = scanner_.takeUntil(end);
    text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);  // 0 for blanks alone.
    if (text.empty() || open_.empty()) return;
    tags_[open_.back().tag].texts.push_back({position, std::string(text)});
  }

  // What may hold a "<" that does not begin a tag, and tags other than start
  // tags.
  bool takeMarkup() {
    if (scanner_.startsWith("</")) {
      scanner_.skipPast(">");
      if (open_.empty()) return true;
      end(open_.back());
      open_.pop_back();
    } else if (scanner_.startsWith("<![CDATA[")) {
      scanner_.skipPast("[CDATA[");
      takeText("]]>");
      scanner_.skipPast("]]>");
    } else if (scanner_.startsWith("<!--")) {
      takeComment();
    } else if (scanner_.startsWith("<?")) {
      scanner_.skipPast("?>");
    } else if (scanner_.startsWith("<!")) {
      skipDocumentType(scanner_);
    } else {
      return false;
    }
    return true;
  }

  void takeComment() {
    const Position position = scanner_.position();
    scanner_.take(4);
    comments_.push_back({position, std::string(scanner_.takeUntil("-->")), {}, {}});
    scanner_.take(3);
  }

  void takeStartTag() {
    StartTag tag;
    tag.position = scanner_.position();
    scanner_.take(1);
    tag.name = scanner_.takeUntilOneOf(" \t\r\n/>");
    while (!scanner_.atEnd()) {
      scanner_.skipBlanks();
      if (scanner_.atEnd() || scanner_.front() == '>' || scanner_.front() == '/') break;
      takeAttribute(scanner_, tag);
    }
    const bool hasDefault = hasDefaultNamespace(tag);
    tag.isInNamespace = hasDefault || tag.name.find(':') != std::string::npos;
    const OpenElement element{tags_.size(), hasDefault, commentsWithElement_, comments_.size()};
    for (std::size_t i = element.firstComment; i < element.commentsEnd; ++i) {
      comments_[i].element = tag.position;
    }
    commentsWithElement_ = element.commentsEnd;
    const bool isEmpty = scanner_.startsWith("/");
    scanner_.skipPast(">");
    isEmpty ? end(element) : open_.push_back(element);
    tags_.push_back(std::move(tag));
  }

  // Of the element, and of those without a prefix in it.
  bool hasDefaultNamespace(const StartTag& tag) const {
    const auto declared = tag.attributes.find("xmlns");
    if (declared != tag.attributes.end()) return !declared->second.source.empty();
    return !open_.empty() && open_.back().hasDefaultNamespace;
  }

  // An element whose end tag has not been read, and the comments in front of it.
  struct OpenElement {
    std::size_t tag = 0;
    bool hasDefaultNamespace = false;
    std::size_t firstComment = 0;
    std::size_t commentsEnd = 0;
  };

  // The element ends here.
  void end(const OpenElement& element) {
    for (std::size_t i = element.firstComment; i < element.commentsEnd; ++i) {
      comments_[i].elementEnd = scanner_.position();
    }
  }

  Scanner scanner_;
  std::vector<StartTag> tags_;
  std::vector<OpenElement> open_;
  std::vector<XmlComment> comments_;
  std::size_t commentsWithElement_ = 0;
};

}  // namespace

std::vector<StartTag> findStartTags(std::string_view utf8) {
  return TagReader(utf8).read();
}

std::vector<XmlComment> findComments(std::string_view utf8) {
  if (utf8.find("<!--") == std::string_view::npos) return {};
  TagReader reader(utf8);
  reader.read();
  return reader.takeComments();
}

}  // namespace driver_feature::host

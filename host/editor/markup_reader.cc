#include "host/editor/markup_reader.h"

#include <algorithm>
#include <array>

namespace driver_feature::editor {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kDeepest = 256;

struct OpaqueKind {
  std::string_view begin;
  std::string_view end;
};

constexpr std::array<OpaqueKind, 4> kOpaque = {
    OpaqueKind{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};

}  // namespace

void MarkupReader::read() {
  while (true) {
    at_ = std::min(text_.find('<', at_), text_.size());
    if (atEnd()) break;
    if (takeOpaque()) continue;
    startsWith("</") ? takeEndTag() : takeStartTag();
  }
  close(0, text_.size());
}

// What may hold a "<" that does not begin a tag. Returns whether it was there.
bool MarkupReader::takeOpaque() {
  const auto* const kind = std::find_if(kOpaque.begin(), kOpaque.end(),
                                        [this](const auto& row) { return startsWith(row.begin); });
  if (kind == kOpaque.end()) return false;
  const std::size_t begin = at_;
  const std::size_t end = text_.find(kind->end, at_ + kind->begin.size());
  at_ = end == std::string_view::npos ? text_.size() : end + kind->end.size();
  markup_.opaque_.push_back({begin, at_});
  return true;
}

void MarkupReader::takeStartTag() {
  MarkupElement element;
  element.startTag.begin = at_++;
  element.nameRange = takeUntilOneOf(" \t\r\n/><\"'=");
  const std::string_view name =
      text_.substr(element.nameRange.begin, element.nameRange.end - element.nameRange.begin);
  element.tag = name.substr(name.find(':') + 1);  // The whole name without a prefix.
  bool isEmpty = false;
  while (true) {
    skipBlanks();
    if (atEnd() || text_[at_] == '<') break;
    isEmpty = startsWith("/>");
    element.isClosed = isEmpty || text_[at_] == '>';
    if (isEmpty) ++at_;
    if (element.isClosed) break;
    takeAttribute(element);
  }
  if (element.isClosed) ++at_;
  element.startTag.end = at_;
  element.whole = element.startTag;
  if (!open_.empty()) element.parent = open_.back();
  element.isOpened = element.isClosed && !isEmpty && open_.size() < kDeepest;
  if (element.isOpened) open_.push_back(markup_.elements_.size());
  markup_.elements_.push_back(std::move(element));
}

void MarkupReader::takeAttribute(MarkupElement& element) {
  MarkupAttribute attribute;
  attribute.nameRange = takeUntilOneOf(" \t\r\n/><\"'=");
  if (attribute.nameRange.begin == attribute.nameRange.end) {
    ++at_;  // A sign that has no business here.
    return;
  }
  attribute.name = text_.substr(attribute.nameRange.begin, at_ - attribute.nameRange.begin);
  const std::size_t afterName = at_;
  skipBlanks();
  if (!atEnd() && text_[at_] == '=') {
    ++at_;
    skipBlanks();
    takeValue(attribute);
  } else {
    at_ = afterName;
  }
  element.attributes.push_back(std::move(attribute));
}

// No "<" is allowed in a value: there its quotation mark is missing.
void MarkupReader::takeValue(MarkupAttribute& attribute) {
  if (atEnd() || (text_[at_] != '"' && text_[at_] != '\'')) return;
  const std::array<char, 2> ends = {text_[at_], '<'};
  ++at_;
  attribute.value = takeUntilOneOf({ends.data(), ends.size()});
  const Range value = *attribute.value;
  attribute.text = resolveReferences(text_.substr(value.begin, value.end - value.begin));
  if (!atEnd() && text_[at_] == ends[0]) ++at_;
}

void MarkupReader::takeEndTag() {
  const std::size_t begin = at_;
  at_ += 2;
  const Range name = takeUntilOneOf(" \t\r\n/><\"'=");
  const std::string_view word = text_.substr(name.begin, name.end - name.begin);
  skipBlanks();
  if (!atEnd() && text_[at_] == '>') ++at_;
  const auto found = std::find_if(open_.rbegin(), open_.rend(), [&](std::size_t number) {
    const Range tag = markup_.elements_[number].nameRange;
    return text_.substr(tag.begin, tag.end - tag.begin) == word;
  });
  // An end tag that is being typed belongs to the innermost element.
  std::size_t owner = open_.empty() ? MarkupElement::kNone : open_.back();
  if (found != open_.rend()) {
    owner = *found;
    const auto depth = static_cast<std::size_t>(open_.rend() - found) - 1;
    close(depth + 1, begin);
    markup_.elements_[owner].endName = name;
    close(depth, at_);
  }
  markup_.endTags_.push_back({{begin, at_}, owner});
}

Range MarkupReader::takeUntilOneOf(std::string_view ends) {
  const std::size_t begin = at_;
  at_ = std::min(text_.find_first_of(ends, at_), text_.size());
  return {begin, at_};
}

void MarkupReader::skipBlanks() {
  at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
}

// Ends the elements from this depth on.
void MarkupReader::close(std::size_t depth, std::size_t end) {
  for (; open_.size() > depth; open_.pop_back()) markup_.elements_[open_.back()].whole.end = end;
}

}  // namespace driver_feature::editor

#include "host/editor/markup.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/editor/markup_reader.h"

namespace driver_feature::editor {

namespace {

struct Entity {
  std::string_view name;
  char character;
};

constexpr std::array<Entity, 5> kEntities = {
    Entity{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

void appendUtf8(unsigned character, std::string& text) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | (character >> 12U));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (character >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

// False when it is not a reference that has a meaning.
bool appendReference(std::string_view name, std::string& text) {
  if (!name.starts_with('#')) {
    const auto* const found = std::find_if(kEntities.begin(), kEntities.end(),
                                           [name](const Entity& row) { return row.name == name; });
    if (found == kEntities.end()) return false;
    text += found->character;
    return true;
  }
  const bool isHexadecimal = name.starts_with("#x");
  const std::string_view digits = name.substr(isHexadecimal ? 2 : 1);
  unsigned character = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, character, isHexadecimal ? 16 : 10);
  if (digits.empty() || read.ec != std::errc() || read.ptr != end) return false;
  if (character > 0x10FFFF) return false;
  appendUtf8(character, text);
  return true;
}

bool isIn(const Range& range, std::size_t offset) {
  return range.begin < offset && offset < range.end;
}

}  // namespace

std::string resolveReferences(std::string_view text) {
  std::string resolved;
  while (!text.empty()) {
    const std::size_t mark = std::min(text.find('&'), text.size());
    resolved += text.substr(0, mark);
    text.remove_prefix(mark);
    const std::size_t end = text.find(';');
    if (end != std::string_view::npos && appendReference(text.substr(1, end - 1), resolved)) {
      text.remove_prefix(end + 1);
    } else if (!text.empty()) {
      resolved += '&';
      text.remove_prefix(1);
    }
  }
  return resolved;
}

const MarkupAttribute* MarkupElement::find(std::string_view name) const {
  const auto found =
      std::find_if(attributes.begin(), attributes.end(),
                   [name](const MarkupAttribute& attribute) { return attribute.name == name; });
  return found != attributes.end() ? &*found : nullptr;
}

std::string MarkupElement::text(std::string_view name) const {
  const MarkupAttribute* attribute = find(name);
  return attribute != nullptr ? attribute->text : "";
}

Markup::Markup(std::string text) : text_(std::move(text)) {
  MarkupReader(*this).read();
}

const MarkupElement* Markup::parentOf(const MarkupElement& element) const {
  return element.parent != MarkupElement::kNone ? &elements_[element.parent] : nullptr;
}

std::vector<const MarkupElement*> Markup::childrenOf(const MarkupElement& element) const {
  std::vector<const MarkupElement*> children;
  const auto number = static_cast<std::size_t>(&element - elements_.data());
  for (std::size_t i = number + 1; i < elements_.size(); ++i) {
    if (elements_[i].startTag.begin >= element.whole.end) break;
    if (elements_[i].parent == number) children.push_back(&elements_[i]);
  }
  return children;
}

std::string_view Markup::contentOf(const MarkupElement& element) const {
  const std::size_t begin = element.startTag.end;
  const std::size_t end = std::max(element.whole.end, begin);
  const std::string_view inside = std::string_view(text_).substr(begin, end - begin);
  return element.endName ? inside.substr(0, inside.rfind('<')) : inside;
}

// The last one that begins before the place; null without one.
const MarkupElement* Markup::elementBefore(std::size_t offset) const {
  const auto next = std::upper_bound(elements_.begin(), elements_.end(), offset,
                                     [](std::size_t wanted, const MarkupElement& element) {
                                       return wanted <= element.startTag.begin;
                                     });
  return next != elements_.begin() ? &*std::prev(next) : nullptr;
}

const MarkupElement* Markup::innermostAt(std::size_t offset) const {
  const auto isAround = [&](const MarkupElement& candidate) {
    if (!candidate.isOpened) return false;
    // The text may end before the element does.
    const bool isUnended = !candidate.endName && candidate.whole.end == text_.size();
    return isUnended || offset < candidate.whole.end;
  };
  const MarkupElement* element = elementBefore(offset);
  while (element != nullptr && !isAround(*element)) element = parentOf(*element);
  return element;
}

std::optional<MarkupPlace> Markup::placeInEndTag(std::size_t offset) const {
  for (const auto& [tag, number] : endTags_) {
    const std::size_t end = std::min(text_.find_first_of(" \t\r\n>", tag.begin), tag.end);
    if (offset < tag.begin + 2 || offset > end) continue;
    const MarkupElement* owner = number == MarkupElement::kNone ? nullptr : &elements_[number];
    return MarkupPlace{MarkupPlace::Kind::kEndName, owner, nullptr, {tag.begin + 2, end}};
  }
  return std::nullopt;
}

std::optional<MarkupPlace> Markup::placeInStartTag(std::size_t offset) const {
  using PlaceKind = MarkupPlace::Kind;
  const MarkupElement* element = elementBefore(offset);
  if (element == nullptr) return std::nullopt;
  const Range tag = element->startTag;
  if (element->isClosed ? offset >= tag.end : offset > tag.end) return std::nullopt;
  if (element->nameRange.touches(offset)) {
    return MarkupPlace{PlaceKind::kTagName, element, nullptr, element->nameRange};
  }
  for (const MarkupAttribute& attribute : element->attributes) {
    if (attribute.nameRange.touches(offset)) {
      return MarkupPlace{PlaceKind::kName, element, &attribute, attribute.nameRange};
    }
    if (attribute.value && attribute.value->touches(offset)) {
      return MarkupPlace{PlaceKind::kValue, element, &attribute, *attribute.value};
    }
  }
  return MarkupPlace{PlaceKind::kInTag, element, nullptr, {offset, offset}};
}

MarkupPlace Markup::placeAt(std::size_t offset) const {
  const bool isOpaque = std::any_of(opaque_.begin(), opaque_.end(),
                                    [offset](const Range& range) { return isIn(range, offset); });
  if (isOpaque) return {};
  if (const auto place = placeInEndTag(offset)) return *place;
  if (const auto place = placeInStartTag(offset)) return *place;
  return {MarkupPlace::Kind::kContent, innermostAt(offset), nullptr, {offset, offset}};
}

}  // namespace driver_feature::editor

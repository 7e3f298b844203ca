#include "host/editor/hover.h"

#include <algorithm>

#include "host/editor/grammar.h"

namespace driver_feature::editor {

namespace {

using Place = MarkupPlace::Kind;

std::string explain(const std::string& name, const std::string& sentence) {
  return "**" + name + "**\n\n" + sentence;
}

std::string explain(const GrammarAttribute& attribute, const MarkupElement& element) {
  std::string text = explain(attribute.name, attribute.sentence);
  if (!attribute.formSentence.empty()) text += "\n\n" + attribute.formSentence;
  if (attribute.isRequired) text += "\n\nIt must be given.";
  if (!attribute.condition.isMetBy(element)) {
    text += "\n\nIt belongs to elements with `" + attribute.condition.attribute + "=\"" +
            attribute.condition.value + "\"`.";
  }
  return text;
}

const GrammarWord* wordOf(const GrammarAttribute& attribute, const std::string& text) {
  const auto found = std::find_if(attribute.words.begin(), attribute.words.end(),
                                  [&text](const GrammarWord& word) { return word.text == text; });
  return found != attribute.words.end() && !found->sentence.empty() ? &*found : nullptr;
}

}  // namespace

std::optional<Hover> hoverAt(const Markup& markup, std::size_t offset) {
  const MarkupPlace place = markup.placeAt(offset);
  if (place.element == nullptr) return std::nullopt;
  const GrammarElement* grammar = Grammar::get().find(markup, *place.element);
  if (grammar == nullptr) return std::nullopt;
  if (place.kind == Place::kTagName || place.kind == Place::kEndName) {
    return Hover{place.word, explain(grammar->tag, grammar->sentence)};
  }
  if (place.attribute == nullptr) return std::nullopt;
  const GrammarAttribute* attribute =
      findAttribute(*grammar, *place.element, place.attribute->name);
  if (attribute == nullptr) return std::nullopt;
  const GrammarWord* word =
      place.kind == Place::kValue ? wordOf(*attribute, place.attribute->text) : nullptr;
  if (word != nullptr) return Hover{place.word, explain(word->text, word->sentence)};
  return Hover{place.word, explain(*attribute, *place.element)};
}

}  // namespace driver_feature::editor

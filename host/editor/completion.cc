#include "host/editor/completion.h"

#include <algorithm>
#include <utility>

#include "host/editor/grammar.h"

namespace driver_feature::editor {

namespace {

using Kind = Completion::Kind;
using Place = MarkupPlace::Kind;

Completion completion(Kind kind, const std::string& name, const std::string& sentence,
                      Range replaced, std::string text) {
  const std::size_t cursor = text.size();
  return {kind, name, sentence, replaced, std::move(text), cursor, false};
}

// Attributes that the library can take from other characters are no concern here:
// the value may be between either kind of quotation marks.
std::string escaped(const std::string& value) {
  std::string text;
  for (const char character : value) {
    if (character == '&') {
      text += "&amp;";
    } else if (character == '<') {
      text += "&lt;";
    } else if (character == '"') {
      text += "&quot;";
    } else if (character == '\'') {
      text += "&apos;";
    } else {
      text += character;
    }
  }
  return text;
}

// With "<" in front when it has not been typed.
std::vector<Completion> elements(const Markup& markup, const MarkupElement* outer, Range replaced,
                                 const std::string& start) {
  std::vector<Completion> found;
  for (const GrammarElement* child : Grammar::get().childrenOf(markup, outer)) {
    found.push_back(
        completion(Kind::kElement, child->tag, child->sentence, replaced, start + child->tag));
  }
  return found;
}

std::vector<Completion> endTag(const Markup& markup, const MarkupPlace& place) {
  if (place.element == nullptr) return {};
  const Range name = place.element->nameRange;
  const std::string tag = markup.text().substr(name.begin, name.end - name.begin);
  const bool isEnded = markup.text().substr(place.word.end).starts_with(">");
  return {completion(Kind::kEndTag, tag, "", place.word, isEnded ? tag : tag + ">")};
}

std::vector<Completion> attributes(const Markup& markup, const MarkupPlace& place) {
  const GrammarElement* grammar = Grammar::get().find(markup, *place.element);
  if (grammar == nullptr) return {};
  std::vector<Completion> found;
  for (const GrammarAttribute& attribute : grammar->attributes) {
    const MarkupAttribute* present = place.element->find(attribute.name);
    const bool isOther = present != nullptr && present != place.attribute;
    if (isOther || !attribute.condition.isMetBy(*place.element)) continue;
    const bool hasValue = place.attribute != nullptr && place.attribute->value;
    Completion item = completion(Kind::kAttribute, attribute.name, attribute.sentence, place.word,
                                 hasValue ? attribute.name : attribute.name + "=\"\"");
    if (!hasValue) --item.cursor;
    item.isRequired = attribute.isRequired;
    found.push_back(std::move(item));
  }
  std::stable_partition(found.begin(), found.end(),
                        [](const Completion& item) { return item.isRequired; });
  return found;
}

std::vector<Completion> optionNames(const Markup& markup, const MarkupPlace& place) {
  std::vector<Completion> found;
  for (const MarkupElement* option : markup.childrenOf(*place.element)) {
    const std::string name = option->text("Name");
    if (name.empty()) continue;
    found.push_back(completion(Kind::kOption, name, "", place.word, escaped(name)));
  }
  return found;
}

std::vector<Completion> featureNames(const Markup& markup, const MarkupPlace& place) {
  std::vector<Completion> found;
  for (const MarkupElement& element : markup.elements()) {
    const std::string name = element.tag == "Feature" ? element.text("Name") : "";
    if (name.empty()) continue;
    found.push_back(completion(Kind::kOption, name, "", place.word, escaped(name)));
  }
  return found;
}

std::vector<Completion> values(const Markup& markup, const MarkupPlace& place,
                               const std::vector<std::string>& routines) {
  const GrammarElement* grammar = Grammar::get().find(markup, *place.element);
  if (grammar == nullptr) return {};
  const GrammarAttribute* attribute =
      findAttribute(*grammar, *place.element, place.attribute->name);
  if (attribute == nullptr) return {};
  if (attribute->form == "OptionName") return optionNames(markup, place);
  if (attribute->form == "FeatureName") return featureNames(markup, place);
  std::vector<Completion> found;
  for (const GrammarWord& word : attribute->words) {
    found.push_back(completion(Kind::kWord, word.text, word.sentence, place.word, word.text));
  }
  if (attribute->form != "Routine") return found;
  for (const std::string& routine : routines) {
    found.push_back(completion(Kind::kRoutine, routine, "", place.word, escaped(routine)));
  }
  return found;
}

}  // namespace

std::vector<Completion> completionsAt(const Markup& markup, std::size_t offset,
                                      const std::vector<std::string>& routines) {
  const MarkupPlace place = markup.placeAt(offset);
  switch (place.kind) {
    case Place::kContent:
      return elements(markup, place.element, place.word, "<");
    case Place::kTagName:
      return elements(markup, markup.parentOf(*place.element), place.word, "");
    case Place::kEndName:
      return endTag(markup, place);
    case Place::kInTag:
    case Place::kName:
      return attributes(markup, place);
    case Place::kValue:
      return values(markup, place, routines);
    case Place::kNowhere:
      break;
  }
  return {};
}

}  // namespace driver_feature::editor

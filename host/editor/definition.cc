#include "host/editor/definition.h"

#include <string>

#include "host/editor/grammar.h"

namespace driver_feature::editor {

namespace {

using Place = MarkupPlace::Kind;

Definition definitionOf(const MarkupElement& element, Range from) {
  const MarkupAttribute* name = element.find("Name");
  const bool isNamed = name != nullptr && name->value;
  return {from, element.whole, isNamed ? *name->value : element.nameRange};
}

std::optional<Definition> optionOf(const Markup& markup, const MarkupPlace& place) {
  for (const MarkupElement* option : markup.childrenOf(*place.element)) {
    const MarkupAttribute* name = option->find("Name");
    if (name == nullptr || name->text != place.attribute->text) continue;
    return definitionOf(*option, place.word);
  }
  return std::nullopt;
}

std::optional<Definition> featureNamed(const Markup& markup, const std::string& name, Range from) {
  std::optional<Definition> found;
  for (const MarkupElement& element : markup.elements()) {
    if (element.tag != "Feature" || element.text("Name") != name || name.empty()) continue;
    found = definitionOf(element, from);
  }
  return found;
}

// The grammar's name for the value; empty without one.
std::string formOf(const Markup& markup, const MarkupPlace& place) {
  const GrammarElement* grammar = Grammar::get().find(markup, *place.element);
  if (grammar == nullptr) return "";
  const GrammarAttribute* attribute =
      findAttribute(*grammar, *place.element, place.attribute->name);
  return attribute != nullptr ? attribute->form : "";
}

}  // namespace

std::optional<Definition> definitionAt(const Markup& markup, std::size_t offset) {
  const MarkupPlace place = markup.placeAt(offset);
  if (place.element == nullptr) return std::nullopt;
  const MarkupElement& element = *place.element;
  if (place.kind == Place::kEndName) {
    return Definition{place.word, element.whole, element.nameRange};
  }
  const bool isName = place.kind == Place::kValue && place.attribute->name == "Name";
  if (element.tag == "Feature" && (isName || place.kind == Place::kTagName)) {
    return featureNamed(markup, element.text("Name"), place.word);
  }
  if (place.kind != Place::kValue) return std::nullopt;
  const std::string form = formOf(markup, place);
  if (form == "OptionName") return optionOf(markup, place);
  if (form == "FeatureName") return featureNamed(markup, place.attribute->text, place.word);
  return std::nullopt;
}

}  // namespace driver_feature::editor

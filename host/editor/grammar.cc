#include "host/editor/grammar.h"

#include <algorithm>

#include "host/editor/grammar_reader.h"
#include "host/editor/schema.h"

namespace driver_feature::editor {

const Grammar& Grammar::get() {
  static const auto* const kGrammar = new Grammar(Markup(std::string(kSchema)));
  return *kGrammar;
}

Grammar::Grammar(const Markup& schema) {
  GrammarReader(schema, *this).read();
}

const GrammarElement* Grammar::find(const Markup& markup, const MarkupElement& element) const {
  const MarkupElement* parent = markup.parentOf(element);
  const GrammarElement* outer = parent != nullptr ? find(markup, *parent) : nullptr;
  if (outer == nullptr) {
    for (const std::size_t number : tops_) {
      if (elements_[number].tag == element.tag) return &elements_[number];
    }
    return nullptr;
  }
  for (const GrammarChild& child : outer->children) {
    if (elements_[child.element].tag == element.tag) return &elements_[child.element];
  }
  return nullptr;
}

std::vector<const GrammarElement*> Grammar::childrenOf(const Markup& markup,
                                                       const MarkupElement* element) const {
  std::vector<const GrammarElement*> children;
  const GrammarElement* grammar = element != nullptr ? find(markup, *element) : nullptr;
  if (grammar == nullptr) {
    for (const std::size_t number : tops_) children.push_back(&elements_[number]);
    return children;
  }
  for (const GrammarChild& child : grammar->children) {
    if (child.condition.isMetBy(*element)) children.push_back(&elements_[child.element]);
  }
  return children;
}

const GrammarAttribute* findAttribute(const GrammarElement& grammar, const MarkupElement& element,
                                      std::string_view name) {
  const GrammarAttribute* found = nullptr;
  for (const GrammarAttribute& attribute : grammar.attributes) {
    if (attribute.name != name) continue;
    if (attribute.condition.isMetBy(element)) return &attribute;
    if (found == nullptr) found = &attribute;
  }
  return found;
}

}  // namespace driver_feature::editor

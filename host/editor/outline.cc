#include "host/editor/outline.h"

#include "host/editor/grammar.h"

namespace driver_feature::editor {

namespace {

Symbol symbolOf(const MarkupElement& element) {
  Symbol symbol;
  symbol.tag = element.tag;
  symbol.name = element.text("Name");
  symbol.detail = element.text("FeatureType");
  symbol.whole = element.whole;
  const MarkupAttribute* name = element.find("Name");
  const bool isNamed = name != nullptr && name->value && !symbol.name.empty();
  symbol.chosen = isNamed ? *name->value : element.nameRange;
  if (!isNamed) symbol.name = element.tag;
  return symbol;
}

// Elements in between that the grammar does not know are left out.
void addChildren(const Markup& markup, const MarkupElement& element, std::vector<Symbol>& symbols) {
  for (const MarkupElement* child : markup.childrenOf(element)) {
    if (Grammar::get().find(markup, *child) == nullptr) continue;
    symbols.push_back(symbolOf(*child));
    addChildren(markup, *child, symbols.back().children);
  }
}

}  // namespace

std::vector<Symbol> outlineOf(const Markup& markup) {
  std::vector<Symbol> symbols;
  for (const MarkupElement& element : markup.elements()) {
    const bool isInside = !symbols.empty() && element.startTag.begin < symbols.back().whole.end;
    if (isInside || Grammar::get().find(markup, element) == nullptr) continue;
    symbols.push_back(symbolOf(element));
    addChildren(markup, element, symbols.back().children);
  }
  return symbols;
}

}  // namespace driver_feature::editor

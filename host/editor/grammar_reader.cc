#include "host/editor/grammar_reader.h"

#include <algorithm>

namespace driver_feature::editor {

namespace {

bool isPlainWord(std::string_view text) {
  return !text.empty() && text.find_first_not_of(
                              "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUV"
                              "WXYZ0123456789") == std::string_view::npos;
}

}  // namespace

void GrammarReader::read() {
  for (const MarkupElement& node : schema_.elements()) {
    if (node.tag == "define") defines_[node.text("name")] = &node;
    if (node.tag != "element" || node.find("name") == nullptr) continue;
    numbers_[&node] = grammar_.elements_.size();
    grammar_.elements_.push_back({node.text("name"), sentenceOf(node), {}, {}});
  }
  for (const MarkupElement& node : schema_.elements()) {
    const bool isTop = node.tag == "start" || (node.tag == "element" && !numbers_.contains(&node));
    if (isTop) collect(node, {});
    if (!numbers_.contains(&node)) continue;
    Context context;
    context.element = &grammar_.elements_[numbers_[&node]];
    collect(node, context);
  }
}

void GrammarReader::collect(const MarkupElement& node, const Context& context) {
  for (const MarkupElement* child : schema_.childrenOf(node)) {
    Context inner = context;
    const std::string& tag = child->tag;
    if (tag == "attribute") {
      addAttribute(*child, context);
    } else if (tag == "element") {
      if (numbers_.contains(child)) addChild(numbers_[child], context);
    } else if (tag == "ref") {
      collectReference(child->text("name"), inner);
    } else {
      const bool isFree = tag == "optional" || tag == "zeroOrMore" || tag == "choice";
      if (isFree) inner.isRequired = false;
      collect(*child, inner);
    }
  }
}

// A part that fixes an attribute's value holds for elements with that value.
void GrammarReader::collectReference(const std::string& name, Context context) {
  const auto define = defines_.find(name);
  if (define == defines_.end()) return;
  const MarkupElement* attribute = childOf(*define->second, "attribute");
  const MarkupElement* value = attribute != nullptr ? childOf(*attribute, "value") : nullptr;
  if (value != nullptr) context.condition = {attribute->text("name"), textOf(*value)};
  collect(*define->second, context);
  if (value == nullptr || context.element == nullptr) return;
  for (GrammarAttribute& known : context.element->attributes) {
    if (known.name != context.condition.attribute) continue;
    known.words.push_back({context.condition.value, sentenceOf(*define->second)});
  }
}

void GrammarReader::addAttribute(const MarkupElement& node, const Context& context) {
  if (context.element == nullptr || node.find("name") == nullptr) return;
  GrammarAttribute attribute;
  attribute.name = node.text("name");
  attribute.sentence = sentenceOf(node);
  attribute.isRequired = context.isRequired;
  auto& known = context.element->attributes;
  if (context.condition.attribute == attribute.name) {
    attribute.isRequired = true;  // Each alternative has it.
    const bool again = std::any_of(known.begin(), known.end(),
                                   [&](const auto& other) { return other.name == attribute.name; });
    if (again) return;
  } else {
    attribute.condition = context.condition;
  }
  readForm(node, attribute);
  known.push_back(std::move(attribute));
}

void GrammarReader::readForm(const MarkupElement& node, GrammarAttribute& attribute) const {
  attribute.words = wordsOfPattern(node);
  const MarkupElement* reference = childOf(node, "ref");
  if (reference == nullptr) return;
  attribute.form = reference->text("name");
  const auto define = defines_.find(attribute.form);
  if (define == defines_.end()) return;
  attribute.formSentence = sentenceOf(*define->second);
  attribute.words = wordsOfPattern(*define->second);
}

// The words of a pattern that has nothing but alternatives: "true|false".
std::vector<GrammarWord> GrammarReader::wordsOfPattern(const MarkupElement& node) const {
  const MarkupElement* data = childOf(node, "data");
  const MarkupElement* parameter = data != nullptr ? childOf(*data, "param") : nullptr;
  if (parameter == nullptr || parameter->text("name") != "pattern") return {};
  const std::string pattern = textOf(*parameter);
  std::vector<GrammarWord> words;
  for (std::size_t begin = 0; begin <= pattern.size();) {
    const std::size_t end = std::min(pattern.find('|', begin), pattern.size());
    words.push_back({pattern.substr(begin, end - begin), ""});
    if (!isPlainWord(words.back().text)) return {};
    begin = end + 1;
  }
  return words;
}

void GrammarReader::addChild(std::size_t element, const Context& context) {
  if (context.element == nullptr) {
    auto& tops = grammar_.tops_;
    if (std::find(tops.begin(), tops.end(), element) == tops.end()) tops.push_back(element);
  } else {
    context.element->children.push_back({element, context.condition});
  }
}

const MarkupElement* GrammarReader::childOf(const MarkupElement& node, std::string_view tag) const {
  for (const MarkupElement* child : schema_.childrenOf(node)) {
    if (child->tag == tag) return child;
  }
  return nullptr;
}

std::string GrammarReader::textOf(const MarkupElement& node) const {
  return resolveReferences(schema_.contentOf(node));
}

std::string GrammarReader::sentenceOf(const MarkupElement& node) const {
  const MarkupElement* sentence = childOf(node, "documentation");
  return sentence != nullptr ? textOf(*sentence) : "";
}

}  // namespace driver_feature::editor

// Reads a schema into a Grammar.
#ifndef HOST_EDITOR_GRAMMAR_READER_H_
#define HOST_EDITOR_GRAMMAR_READER_H_

#include <map>
#include <string>
#include <vector>

#include "host/editor/grammar.h"
#include "host/editor/markup.h"

namespace driver_feature::editor {

class GrammarReader {
 public:
  GrammarReader(const Markup& schema, Grammar& grammar) : schema_(schema), grammar_(grammar) {}

  void read();

 private:
  // What the patterns around a pattern say.
  struct Context {
    GrammarElement* element = nullptr;  // Null in elements of any name.
    bool isRequired = true;
    GrammarCondition condition;
  };

  void collect(const MarkupElement& node, const Context& context);
  void collectReference(const std::string& name, Context context);
  void addAttribute(const MarkupElement& node, const Context& context);
  void addChild(std::size_t element, const Context& context);
  void readForm(const MarkupElement& node, GrammarAttribute& attribute) const;
  const MarkupElement* childOf(const MarkupElement& node, std::string_view tag) const;
  std::string sentenceOf(const MarkupElement& node) const;
  std::string textOf(const MarkupElement& node) const;
  std::vector<GrammarWord> wordsOfPattern(const MarkupElement& node) const;

  const Markup& schema_;
  Grammar& grammar_;
  std::map<std::string, const MarkupElement*> defines_;
  std::map<const MarkupElement*, std::size_t> numbers_;  // Of elements with a name.
};

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_GRAMMAR_READER_H_

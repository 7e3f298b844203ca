// The grammar of descriptions: which elements, attributes and values there are,
// with the sentence on each. It is read from the schema for editors.
#ifndef HOST_EDITOR_GRAMMAR_H_
#define HOST_EDITOR_GRAMMAR_H_

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/editor/markup.h"

namespace driver_feature::editor {

// A word that a value may be.
struct GrammarWord {
  std::string text;
  std::string sentence;  // May be empty.
};

// A condition on an element: this attribute has this value.
struct GrammarCondition {
  std::string attribute;  // Empty: for all.
  std::string value;

  bool isMetBy(const MarkupElement& element) const {
    return attribute.empty() || element.text(attribute) == value;
  }
};

struct GrammarAttribute {
  std::string name;
  std::string sentence;
  std::string form;                // The grammar's name for such values: "Routine"; may be empty.
  std::string formSentence;        // May be empty.
  std::vector<GrammarWord> words;  // All values; empty when there are others.
  bool isRequired = false;
  GrammarCondition condition;
};

struct GrammarChild {
  std::size_t element = 0;  // By its number.
  GrammarCondition condition;
};

struct GrammarElement {
  std::string tag;
  std::string sentence;
  std::vector<GrammarAttribute> attributes;
  std::vector<GrammarChild> children;
};

class Grammar {
 public:
  // That of descriptions.
  static const Grammar& get();

  // `schema` is in the XML syntax of RELAX NG, as far as the schema of descriptions
  // uses it.
  explicit Grammar(const Markup& schema);

  // The grammar's element for this one, by its tag and ancestors; null when it is
  // unknown.
  const GrammarElement* find(const Markup& markup, const MarkupElement& element) const;

  // What may be in an element, or at top level and in unknown elements (null).
  std::vector<const GrammarElement*> childrenOf(const Markup& markup,
                                                const MarkupElement* element) const;

  const std::vector<GrammarElement>& elements() const { return elements_; }

 private:
  friend class GrammarReader;

  std::vector<GrammarElement> elements_;
  std::vector<std::size_t> tops_;
};

// The attribute of that name whose condition the element meets; null when there
// is none.
const GrammarAttribute* findAttribute(const GrammarElement& grammar, const MarkupElement& element,
                                      std::string_view name);

}  // namespace driver_feature::editor

#endif  // HOST_EDITOR_GRAMMAR_H_

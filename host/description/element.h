// The elements of a feature description as its author sees them: what the
// library's loader would take each for, and its place in the text.
#ifndef HOST_DESCRIPTION_ELEMENT_H_
#define HOST_DESCRIPTION_ELEMENT_H_

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/base/position.h"
#include "host/description/document.h"
#include "host/description/feature_kind.h"
#include "host/description/start_tags.h"

namespace driver_feature::host {

// What the loader takes an element for.
enum class Role : unsigned char {
  kDescription,
  kBaseInfo,
  kFeature,
  kStaticGroup,
  kDynamicGroup,
  kOption,
  kOther,  // What the loader refuses or ignores, depending on the parent's role.
};

struct Attribute {
  std::string name;
  std::string value;
  Position position;       // Of the name.
  Position valuePosition;  // Of what is between the quotation marks.
  std::string source;      // The value as it is written, references unresolved.
};

struct Element {
  std::string tag;
  Role role = Role::kOther;
  std::optional<FeatureKind> kind;  // Of features whose type is known.
  bool inTemplate = false;          // A dynamic group's template, or inside one.
  bool isInNamespace = false;       // Which the loader does not look at.
  Position position;
  std::vector<Attribute> attributes;
  std::vector<TextPlace> texts;  // Between its tags, outside of its children.
  std::vector<std::unique_ptr<Element>> children;
  const Element* parent = nullptr;
  std::size_t number = 0;  // In the document, from 0, in the order of the start tags.

  const Attribute* find(const std::string& name) const;
  // The attribute's text; empty when it is absent.
  std::string text(const std::string& name) const;
  bool has(const std::string& name) const { return !text(name).empty(); }
  std::string name() const { return text("Name"); }
  // The position of an attribute, or of the element when it has no such
  // attribute.
  Position positionOf(const std::string& attribute) const;

  bool isKind(FeatureKind wanted) const { return kind == wanted; }
  // Whether a static group holds it and writes it.
  bool isMember() const { return parent != nullptr && parent->role == Role::kStaticGroup; }
};

// The elements of a document's feature description, with their places.
struct DescriptionElements {
  std::unique_ptr<Element> description;
  std::optional<Position> second;  // Of a second description, which is not read.
};

// Needs the document's text.
DescriptionElements elementsOf(const Document& document);

// Calls `visit` for the element and all below it, parents first.
void forEachElement(const Element& element, const std::function<void(const Element&)>& visit);

// How messages name an element: feature "A", option "x" of feature "A",
// static group "G", element <Foo>.
std::string describeElement(const Element& element);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_ELEMENT_H_

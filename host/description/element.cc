#include "host/description/element.h"

#include <algorithm>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

#include "host/description/xml_element.h"
#include "host/description/text_encoding.h"

namespace driver_feature::host {

namespace {

struct TagRole {
  Role parent;
  Role role;
  const char* tag;
};

constexpr TagRole kTagRoles[] = {
    {Role::kDescription, Role::kFeature, "Feature"},
    {Role::kDescription, Role::kStaticGroup, "FeatureStaticGroup"},
    {Role::kDescription, Role::kDynamicGroup, "FeatureDynamicGroup"},
    {Role::kDescription, Role::kBaseInfo, "BaseFeatureInfo"},
    {Role::kStaticGroup, Role::kStaticGroup, "FeatureStaticGroup"},
    {Role::kStaticGroup, Role::kFeature, "Feature"},
    {Role::kDynamicGroup, Role::kStaticGroup, "FeatureStaticGroup"},
};

// Every child of a list feature is an option, whatever its tag. A feature of
// no valid type is most likely meant to be a list when it has children.
bool hasOptions(const Element& element) {
  if (element.role != Role::kFeature) return false;
  return !element.kind || element.isKind(FeatureKind::kMultiSelect);
}

Role roleOf(const Element& parent, const std::string& tag) {
  if (hasOptions(parent)) return Role::kOption;
  for (const TagRole& row : kTagRoles) {
    if (row.parent == parent.role && tag == row.tag) return row.role;
  }
  return Role::kOther;
}

class TreeBuilder {
 public:
  TreeBuilder(const std::vector<StartTag>& tags, std::size_t number)
      : tags_(tags), number_(number) {}

  std::unique_ptr<Element> build(void* handle, const Element* parent) {
    auto element = std::make_unique<Element>();
    element->parent = parent;
    element->number = number_++;
    pParserInstance->tagName(handle, element->tag);
    readPlaces(handle, *element);
    element->role = parent != nullptr ? roleOf(*parent, element->tag) : Role::kDescription;
    if (element->role == Role::kFeature) element->kind = kindNamed(element->text("FeatureType"));
    element->inTemplate =
        parent != nullptr && (parent->inTemplate || parent->role == Role::kDynamicGroup);
    forEachChild(handle, [this, &element](void* child) {
      element->children.push_back(build(child, element.get()));
    });
    return element;
  }

 private:
  void readPlaces(void* handle, Element& element) {
    static const StartTag kUnknown;
    const StartTag& tag = element.number < tags_.size() ? tags_[element.number] : kUnknown;
    element.position = tag.position;
    element.texts = tag.texts;
    element.isInNamespace = tag.isInNamespace;
    if (element.position.line == 0) element.position = {XMLDocument::lineOf(handle), 1};
    AttributeMap map;
    pParserInstance->attributes(handle, map);
    for (long i = 0; i < map.size(); ++i) {
      Attribute attribute;
      map.fetchAttributeValueByIndex(i, attribute.name, attribute.value);
      attribute.position = element.position;
      const auto place = tag.attributes.find(attribute.name);
      if (place != tag.attributes.end()) {
        attribute.position = place->second.name;
        attribute.valuePosition = place->second.value;
        attribute.source = place->second.source;
      }
      element.attributes.push_back(std::move(attribute));
    }
  }

  const std::vector<StartTag>& tags_;
  std::size_t number_;
};

std::size_t countElements(void* element) {
  std::size_t count = 1;
  forEachChild(element, [&count](void* child) { count += countElements(child); });
  return count;
}

// The number of a root's child among the elements of the document; 0 for the
// root itself.
std::size_t numberOf(void* root, void* element) {
  if (element == root) return 0;
  std::size_t number = 1;
  for (void* child = pParserInstance->firstChild(root); child != element;
       child = pParserInstance->nextSibling(child)) {
    number += countElements(child);
  }
  return number;
}

const char* wordsOf(Role role) {
  switch (role) {
    case Role::kFeature:
      return "feature";
    case Role::kStaticGroup:
      return "static group";
    case Role::kDynamicGroup:
      return "dynamic group";
    case Role::kOption:
      return "option";
    default:
      return nullptr;
  }
}

}  // namespace

const Attribute* Element::find(const std::string& name) const {
  const auto found = std::find_if(attributes.begin(), attributes.end(),
                                  [&name](const Attribute& item) { return item.name == name; });
  return found != attributes.end() ? &*found : nullptr;
}

std::string Element::text(const std::string& name) const {
  const Attribute* attribute = find(name);
  return attribute != nullptr ? attribute->value : "";
}

Position Element::positionOf(const std::string& attribute) const {
  const Attribute* found = find(attribute);
  return found != nullptr ? found->position : position;
}

DescriptionElements elementsOf(const Document& document) {
  const std::vector<StartTag> tags =
      findStartTags(decodeText(document.text(), declaredEncoding(document.text())));
  const auto positionOf = [&](void* handle) {
    const std::size_t number = numberOf(document.root(), handle);
    return number < tags.size() ? tags[number].position : Position{};
  };
  DescriptionElements elements;
  void* description = document.description();
  elements.description =
      TreeBuilder(tags, numberOf(document.root(), description)).build(description, nullptr);
  if (void* second = document.secondDescription()) elements.second = positionOf(second);
  return elements;
}

void forEachElement(const Element& element, const std::function<void(const Element&)>& visit) {
  visit(element);
  for (const auto& child : element.children) forEachElement(*child, visit);
}

std::string describeElement(const Element& element) {
  const char* words = wordsOf(element.role);
  if (words == nullptr || element.find("Name") == nullptr) return "element <" + element.tag + ">";
  std::string text = std::string(words) + " \"" + element.name() + "\"";
  if (element.role == Role::kOption) text += " of " + describeElement(*element.parent);
  return text;
}

}  // namespace driver_feature::host

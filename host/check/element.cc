#include "host/check/element.h"

#include <algorithm>
#include <array>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

namespace driver_feature {

namespace {

// In the order of FeatureKind.
const std::vector<std::string> kTypeWords = {"UIOnly",    "MultiSelect", "IntEntry",
                                             "TextEntry", "FloatEntry",  "MVCList"};

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

std::optional<FeatureKind> kindNamed(const std::string& word) {
  const auto found = std::find(kTypeWords.begin(), kTypeWords.end(), word);
  if (found == kTypeWords.end()) return std::nullopt;
  return static_cast<FeatureKind>(found - kTypeWords.begin());
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
    for (void* child = pParserInstance->firstChild(handle); child != nullptr;
         child = pParserInstance->nextSibling(child)) {
      element->children.push_back(build(child, element.get()));
    }
    return element;
  }

 private:
  void readPlaces(void* handle, Element& element) {
    static const StartTag kUnknown;
    const StartTag& tag = element.number < tags_.size() ? tags_[element.number] : kUnknown;
    element.position = tag.position;
    if (element.position.line == 0) element.position = {XMLDocument::lineOf(handle), 1};
    AttributeMap map;
    pParserInstance->attributes(handle, map);
    for (long i = 0; i < map.size(); ++i) {
      Attribute attribute;
      map.fetchAttributeValueByIndex(i, attribute.name, attribute.value);
      const auto place = tag.attributes.find(attribute.name);
      attribute.position = place != tag.attributes.end() ? place->second : element.position;
      element.attributes.push_back(attribute);
    }
  }

  const std::vector<StartTag>& tags_;
  std::size_t number_;
};

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

const char* wordOf(FeatureKind kind) {
  return kTypeWords[static_cast<std::size_t>(kind)].c_str();
}

const std::vector<std::string>& featureTypeWords() {
  return kTypeWords;
}

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

std::unique_ptr<Element> buildTree(void* description, const std::vector<StartTag>& tags,
                                   std::size_t number) {
  return TreeBuilder(tags, number).build(description, nullptr);
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

}  // namespace driver_feature

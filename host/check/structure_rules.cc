// Elements that the library silently accepts although something is wrong.

#include <algorithm>
#include <map>

#include "host/base/text.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

// Whether a parent of this role refuses a child of the wrong name, which
// checkLoad() reports.
bool refusesChildren(host::Role role) {
  return role == host::Role::kDescription || role == host::Role::kStaticGroup ||
         role == host::Role::kDynamicGroup;
}

std::string shortened(const std::string& text) {
  constexpr std::size_t kShown = 20;
  const auto characters = host::splitCharacters(text);
  if (characters.size() <= kShown) return text;
  const char* end = characters[kShown].data();
  return text.substr(0, static_cast<std::size_t>(end - text.data())) + "...";
}

// One finding for each name that children of a list have in place of "Option".
void checkOptionTags(const host::Element& feature, Findings& findings) {
  std::map<std::string, std::vector<const host::Element*>> children;
  for (const auto& child : feature.children) {
    const bool isNamed = child->role != host::Role::kOption || child->tag == "Option";
    if (!isNamed) children[child->tag].push_back(child.get());
  }
  for (const auto& [tag, elements] : children) {
    findings.push_back(
        {Code::kOptionTag,
         elements.front()->position,
         "element <" + tag + "> is read as an option of " + describeElement(feature) +
             (elements.size() > 1
                  ? ", as are " + std::to_string(elements.size() - 1) + " more of that name"
                  : ""),
         "name it <Option>, or move it out of the feature",
         {}});
  }
}

void checkStrayTexts(const host::Element& element, Findings& findings) {
  // The content of an element that is not read is not read either.
  if (element.role == host::Role::kOther) return;
  for (const host::TextPlace& text : element.texts) {
    findings.push_back({Code::kStrayText,
                        text.position,
                        "the text \"" + shortened(text.text) + "\" inside " +
                            describeElement(element) + " is not read",
                        "remove it, or put it into a comment",
                        {}});
  }
}

// Once for the outermost element.
void checkNamespace(const host::Element& element, Findings& findings) {
  const bool isInner = element.parent != nullptr && element.parent->isInNamespace;
  if (!element.isInNamespace || isInner || element.role == host::Role::kOther) return;
  findings.push_back(
      {Code::kNamespace,
       element.position,
       describeElement(element) + " is in a namespace, which the library does not look at",
       "write it without a prefix and, where a default namespace is declared, with xmlns=\"\"",
       {}});
}

void checkChild(const host::Element& child, Findings& findings) {
  const host::Element& parent = *child.parent;
  // The content of an ignored element is ignored, too.
  if (child.role != host::Role::kOther || refusesChildren(parent.role) ||
      parent.role == host::Role::kOther) {
    return;
  }
  const bool hasKind = parent.role == host::Role::kFeature && parent.kind;
  findings.push_back(
      {Code::kIgnoredElement,
       child.position,
       "element <" + child.tag + "> inside " + describeElement(parent) + " is not read",
       hasKind ? "move it, or make the feature a MultiSelect to give it options"
               : "move or remove it",
       {}});
}

// The first attribute that the loader reports to the update callback.
const host::Attribute* notifyingAttribute(const host::Element& element) {
  if (element.role != host::Role::kFeature) return nullptr;
  for (const char* name : {"Sensitivity", "Visibility", "Encrypted"}) {
    const bool isStored =
        name != std::string("Encrypted") || element.isKind(host::FeatureKind::kTextEntry);
    if (isStored && boolOf(element, name)) return element.find(name);
  }
  return nullptr;
}

void checkBaseInfo(const host::Element& description, Findings& findings) {
  std::vector<const host::Element*> infos;
  for (const auto& child : description.children) {
    if (child->role == host::Role::kBaseInfo) infos.push_back(child.get());
  }
  if (infos.empty()) {
    findings.push_back({Code::kNoBaseInfo,
                        description.position,
                        "the description has no BaseFeatureInfo",
                        "put <BaseFeatureInfo DefaultCallbackHandler=\"...\"/> before the features",
                        {}});
    return;
  }
  for (std::size_t i = 1; i < infos.size(); ++i) {
    findings.push_back({Code::kRepeatedBaseInfo,
                        infos[i]->position,
                        "this BaseFeatureInfo replaces the callbacks of line " +
                            std::to_string(infos[i - 1]->position.line),
                        "remove one of them",
                        {}});
  }
  bool reported = false;
  forEachElement(description, [&](const host::Element& element) {
    const host::Attribute* attribute = notifyingAttribute(element);
    if (reported || attribute == nullptr || element.number > infos.front()->number) return;
    reported = true;
    findings.push_back({Code::kLateBaseInfo,
                        infos.front()->position,
                        "BaseFeatureInfo comes after \"" + attribute->name + "\" of " +
                            describeElement(element) + " in line " +
                            std::to_string(attribute->position.line),
                        "move it before the first feature",
                        {}});
  });
}

}  // namespace

void checkStructure(const host::Element& description, Findings& findings) {
  forEachElement(description, [&findings](const host::Element& element) {
    if (element.parent != nullptr) checkChild(element, findings);
    checkOptionTags(element, findings);
    checkStrayTexts(element, findings);
    checkNamespace(element, findings);
  });
  checkBaseInfo(description, findings);
}

}  // namespace driver_feature::check

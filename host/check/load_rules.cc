// What makes the library refuse a description: it ends the process.

#include "Symbols.h"

#include "host/base/text.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

using Lines = std::vector<std::string>;

// The lines of the builders around `built`, which could not be built.
Lines followUps(const host::Element& built) {
  Lines lines;
  for (const host::Element* inner = &built; inner->parent != nullptr; inner = inner->parent) {
    const host::Element& outer = *inner->parent;
    if (outer.role == host::Role::kDynamicGroup) {
      lines.push_back(
          "CreateDynamicFeatureGroup() - Cannot create template static feature group to feature "
          "group \"" +
          outer.name() + "\".");
    } else if (outer.role == host::Role::kStaticGroup && inner->role == host::Role::kFeature) {
      lines.emplace_back("CreateStaticFeatureGroup() - Could not create feature for feature group");
    } else if (outer.role == host::Role::kStaticGroup) {
      lines.push_back(
          "CreateStaticFeatureGroup() - Cannot create nested static feature group to feature "
          "group \"" +
          outer.name() + "\".");
    }
  }
  return lines;
}

Lines linesFor(const std::string& first, const host::Element& built) {
  Lines lines = {first};
  for (const std::string& line : followUps(built)) lines.push_back(line);
  return lines;
}

class LoadWalk {
 public:
  explicit LoadWalk(Findings& findings) : findings_(findings) {}

  void walk(const host::Element& description) {
    for (const auto& child : description.children) {
      if (child->role == host::Role::kOther) {
        refuseChild(*child, "in a FeatureDescription",
                    {"Feature", "FeatureStaticGroup", "FeatureDynamicGroup", "BaseFeatureInfo"},
                    {"FeatureXMLTagHandler() - Invalid element tag \"" + child->tag + "\"."});
      } else {
        visit(*child);
      }
    }
  }

 private:
  void visit(const host::Element& element) {
    switch (element.role) {
      case host::Role::kBaseInfo:
        return baseInfo(element);
      case host::Role::kFeature:
        return feature(element);
      case host::Role::kStaticGroup:
        return staticGroup(element);
      case host::Role::kDynamicGroup:
        return dynamicGroup(element);
      default:
        return;
    }
  }

  void baseInfo(const host::Element& element) {
    constexpr const char* kUpdate = "DefaultCallbackHandler";
    constexpr const char* kLoad = "LoadVORNCallbackHandler";
    if (element.find(kUpdate) == nullptr) {
      missing(element, kUpdate, "name the routine that the library calls after a change",
              {"FeatureXMLTagHandler() - No Default Callback Handler element"});
    } else if (FetchSymbol(element.text(kUpdate).c_str()) == nullptr) {
      findings_.push_back(
          refusal(Code::kNoUpdateRoutine, element.positionOf(kUpdate),
                  "there is no routine \"" + element.text(kUpdate) + "\" for the update callback",
                  missingRoutineRemedy(element.text(kUpdate)),
                  {"FeatureXMLTagHandler() - Null Default Callback Handler pointer"}));
    }
    if (element.find(kLoad) == nullptr || FetchSymbol(element.text(kLoad).c_str()) != nullptr) {
      return;
    }
    findings_.push_back(
        {Code::kNoLoadRoutine,
         element.positionOf(kLoad),
         "there is no routine \"" + element.text(kLoad) + "\" that loads ticket data",
         missingRoutineRemedy(element.text(kLoad)),
         {"FeatureXMLTagHandler() - Null Custom Load VORN Callback Handler pointer"}});
  }

  void feature(const host::Element& element) {
    const host::Attribute* type = element.find("FeatureType");
    const std::string words = host::join(host::featureTypeWords(), ", ");
    if (type == nullptr) {
      missing(element, "FeatureType", "give one of " + words,
              linesFor("CreateFeature() - No keyword defined for feature type", element));
    }
    requireName(element, "CreateFeature() - No name defined for feature");
    if (type != nullptr && !element.kind) {
      findings_.push_back(refusal(
          Code::kUnknownType, type->position, "\"" + type->value + "\" is not a feature type",
          didYouMean(type->value, host::featureTypeWords(), "give one of " + words),
          linesFor("CreateFeature() - Invalid feature type \"" + type->value + "\" for feature \"" +
                       element.name() + "\".",
                   element)));
    }
    if (!element.isKind(host::FeatureKind::kMultiSelect)) return;
    if (element.children.empty()) {
      findings_.push_back(
          refusal(Code::kNoOptions, element.position, describeElement(element) + " has no options",
                  "add an <Option> for each choice",
                  linesFor("CreateFeature() - No options for MultiSelect feature", element)));
    }
    for (const auto& child : element.children) option(*child, element);
  }

  void option(const host::Element& element, const host::Element& owner) {
    if (element.find("Name") != nullptr) return;
    Lines lines = {"CreateFeatureOption() - No name defined for option"};
    for (const std::string& line :
         linesFor("CreateFeature() - Could not create MultiSelect feature option", owner)) {
      lines.push_back(line);
    }
    missing(element, "Name", "name the option", lines);
  }

  void staticGroup(const host::Element& element) {
    requireName(element, "CreateStaticFeatureGroup() - No name defined for feature group");
    if (element.children.empty()) {
      findings_.push_back(refusal(
          Code::kEmptyStaticGroup, element.position, describeElement(element) + " has no members",
          "add a <Feature> or a <FeatureStaticGroup>, or remove the group",
          linesFor("CreateStaticFeatureGroup() - No features for feature group", element)));
    }
    for (const auto& child : element.children) {
      if (child->role == host::Role::kOther) {
        refuseChild(
            *child, "in a static group", {"Feature", "FeatureStaticGroup"},
            linesFor("CreateStaticFeatureGroup() - Invalid node tag \"" + child->tag + "\".",
                     element));
      } else {
        visit(*child);
      }
    }
  }

  void dynamicGroup(const host::Element& element) {
    requireName(element, "CreateDynamicFeatureGroup() - No name defined for feature group");
    if (element.children.size() != 1) {
      findings_.push_back(refusal(
          Code::kDynamicGroupChildren, element.position,
          describeElement(element) + " has " + std::to_string(element.children.size()) +
              " children",
          "give it exactly one <FeatureStaticGroup>, the template of its records",
          linesFor("CreateDynamicFeatureGroup() - Wrong number of subnodes for dynamic group",
                   element)));
    }
    for (const auto& child : element.children) {
      if (child->role == host::Role::kOther) {
        refuseChild(
            *child, "in a dynamic group", {"FeatureStaticGroup"},
            linesFor("CreateDynamicFeatureGroup() - Invalid node tag \"" + child->tag + "\".",
                     element));
      } else {
        visit(*child);
      }
    }
  }

  void requireName(const host::Element& element, const std::string& line) {
    if (element.find("Name") != nullptr) return;
    missing(element, "Name", "name it", linesFor(line, element));
  }

  void missing(const host::Element& element, const std::string& attribute,
               const std::string& remedy, const Lines& lines) {
    findings_.push_back(refusal(
        Code::kMissingAttribute, element.position,
        describeElement(element) + " has no attribute \"" + attribute + "\"", remedy, lines));
  }

  void refuseChild(const host::Element& child, const std::string& place, const Lines& allowed,
                   const Lines& lines) {
    findings_.push_back(
        refusal(Code::kInvalidElement, child.position,
                "element <" + child.tag + "> is not allowed " + place,
                didYouMean(child.tag, allowed, "use one of " + host::join(allowed, ", ")), lines));
  }

  Findings& findings_;
};

}  // namespace

void checkLoad(const host::Element& description, Findings& findings) {
  LoadWalk(findings).walk(description);
}

}  // namespace driver_feature::check

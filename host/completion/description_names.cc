#include "host/completion/description_names.h"

#include "AttributeMap.h"
#include "XMLParser.h"
#include "host/description_file.h"
#include "host/log_printer.h"

namespace driver_feature {

namespace {

std::string textOf(void* element, const std::string& name) {
  AttributeMap attributes;
  pParserInstance->attributes(element, attributes);
  std::string text;
  attributes.loadMapVariable(name, text, nullptr);
  return text;
}

std::string tagOf(void* element) {
  std::string tag;
  pParserInstance->tagName(element, tag);
  return tag;
}

NamedFeature readFeature(void* element) {
  NamedFeature feature{textOf(element, "Name"), textOf(element, "FeatureType"), {}};
  if (feature.type != "MultiSelect") return feature;
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    if (tagOf(child) == "Option") feature.options.push_back(textOf(child, "Name"));
  }
  return feature;
}

void addChildren(void* element, DescriptionNames& names) {
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    const std::string tag = tagOf(child);
    if (tag == "Feature") {
      names.features.push_back(readFeature(child));
    } else if (tag == "FeatureStaticGroup" || tag == "FeatureDynamicGroup") {
      auto& groups = tag == "FeatureStaticGroup" ? names.staticGroups : names.dynamicGroups;
      groups.push_back(textOf(child, "Name"));
      addChildren(child, names);
    }
  }
}

}  // namespace

DescriptionNames readNames(const std::string& path) {
  const LogSilence silence;
  std::string problem;
  const auto file = DescriptionFile::read(path, problem);
  DescriptionNames names;
  if (file) addChildren(file->element(), names);
  return names;
}

}  // namespace driver_feature

// A small host of the feature library: loads the plug-in, passes it a feature
// description, makes settings and writes the three forms of output.
//
//   minimal_host PLUGIN DESCRIPTION STEM [NAME=VALUE]...
//
// writes STEM.ps, STEM.pjl and STEM.xml, after all settings have been made.

#include <dlfcn.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"
#include "frame/exports.h"
#include "model/core_feature_set.h"

namespace {

[[noreturn]] void fail(const std::string& reason) {
  throw std::runtime_error(reason);
}

// Codes of feature types, as getFeatureType() returns them.
enum { kMultiSelect = 1, kIntEntry = 2 };

// The plug-in's functions, bound by name, with the types of its header.
struct Plugin {
  void* library = nullptr;
  decltype(&FeatureXMLTagHandler) handleDescription = nullptr;
  decltype(&GetMasterFeatureList) getFeatures = nullptr;
  decltype(&SetFeatureCreationCompleteFlag) completeCreation = nullptr;
  decltype(&SetFeatureIntValue) setInt = nullptr;

  template <class Pointer>
  void bind(Pointer& pointer, const char* name) const {
    pointer = reinterpret_cast<Pointer>(dlsym(library, name));
    if (pointer == nullptr) fail(std::string("no feature library: ") + dlerror());
  }
};

Plugin plugin;
int valueChanges = 0;

Plugin loadPlugin(const std::string& path) {
  Plugin loaded;
  loaded.library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (loaded.library == nullptr) fail(dlerror());
  // The three records say what the library is and who takes the description.
  const char* const* version = nullptr;
  const char* const* displayName = nullptr;
  const char* const* handlerName = nullptr;
  loaded.bind(version, "_KirvoSOVersion");
  loaded.bind(displayName, "_KirvoSODisplayName");
  loaded.bind(handlerName, "_KirvoNDTagHandlerFunction");
  if (*version != std::string("v1.0")) fail(path + ": speaks plug-in interface " + *version);
  loaded.bind(loaded.handleDescription, *handlerName);
  loaded.bind(loaded.getFeatures, "GetMasterFeatureList");
  loaded.bind(loaded.completeCreation, "SetFeatureCreationCompleteFlag");
  loaded.bind(loaded.setInt, "SetFeatureIntValue");
  std::cerr << "loaded: " << *displayName << ' ' << *version << '\n';
  return loaded;
}

// The element itself if it has that tag, else its first child that has, or null.
void* findElement(void* element, const std::string& wanted) {
  std::string tag;
  pParserInstance->tagName(element, tag);
  if (tag == wanted) return element;
  void* child = pParserInstance->firstChild(element);
  for (; child != nullptr; child = pParserInstance->nextSibling(child)) {
    pParserInstance->tagName(child, tag);
    if (tag == wanted) return child;
  }
  return nullptr;
}

// The library keeps the limits of a feature and does not enforce them: that is
// up to the host, which reads them in the description.
void checkLimits(void* description, const std::string& name, int value) {
  void* feature = pParserInstance->firstChild(description);
  for (; feature != nullptr; feature = pParserInstance->nextSibling(feature)) {
    AttributeMap attributes;
    pParserInstance->attributes(feature, attributes);
    if (attributes["Name"] != name) continue;
    int limit = 0;
    if ((attributes.loadMapVariable("IntMinValue", limit, nullptr) && value < limit) ||
        (attributes.loadMapVariable("IntMaxValue", limit, nullptr) && value > limit)) {
      fail("the limit is " + std::to_string(limit));
    }
  }
}

// Through the virtual interface.
void choose(CoreFeature& feature, const std::string& name) {
  const int position = feature.fetchOptionIndexByName(name);
  bool available = false;
  if (position < 0 ||
      !feature.fetchOptionByIndex(position)->getOptionProperty("Sensitivity", &available) ||
      !available) {
    fail("there is no such option, or it is not available");
  }
  if (!feature.setFeatureProperty("CurrentIntValue", position)) fail("the library refuses it");
}

// Through the C functions.
void enterNumber(void* description, std::string name, const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const long number = std::strtol(text.c_str(), &end, 10);
  const int value = static_cast<int>(number);
  if (text.empty() || *end != '\0' || errno != 0 || value != number)
    fail("that is not a whole number");
  checkLimits(description, name, value);
  if (plugin.setInt(name, "CurrentIntValue", value) == 0) fail("the library refuses it");
}

void set(CoreFeatureSet& features, void* description, const std::string& setting) {
  const std::size_t sign = setting.find('=');
  if (sign == std::string::npos) fail("write NAME=VALUE");
  const std::string name = setting.substr(0, sign);
  const std::string value = setting.substr(sign + 1);
  CoreFeature* feature = features.FindFeatureInFeatureList(name);
  if (feature == nullptr) fail("there is no feature of that name");
  switch (feature->getFeatureType()) {
    case kMultiSelect:
      return choose(*feature, value);
    case kIntEntry:
      return enterNumber(description, name, value);
    default:
      fail("this host sets choices and whole numbers only");
  }
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  if (!file) fail(path + ": cannot be written: " + std::strerror(errno));
}

void run(int count, char** arguments) {
  plugin = loadPlugin(arguments[1]);
  XMLProblem problem;
  const auto document = XMLDocument::parseFile(arguments[2], problem);
  if (!document) {
    fail(std::string(arguments[2]) + ":" + std::to_string(problem.line) + ": " + problem.text);
  }
  void* description = findElement(document->root(), "FeatureDescription");
  if (description == nullptr) fail(std::string(arguments[2]) + ": has no FeatureDescription");
  // A description that cannot be built ends the process from inside.
  if (plugin.handleDescription(description) != 1) fail("no features were built");
  plugin.completeCreation();

  CoreFeatureSet& features = *static_cast<CoreFeatureSet*>(plugin.getFeatures());
  for (int i = 4; i < count; ++i) {
    try {
      set(features, description, arguments[i]);
    } catch (const std::exception& reason) {
      fail(std::string(arguments[i]) + ": " + reason.what());
    }
  }
  const char* const endings[] = {".pjl", ".ps", ".xml"};  // In the order of serialize().
  std::string outputs[3];
  for (int form = 0; form < 3; ++form) {
    features.serialize(outputs[form], form, false, "1.0", "desk");
  }
  for (int form = 0; form < 3; ++form)
    writeFile(arguments[3] + std::string(endings[form]), outputs[form]);
  std::cerr << "values changed: " << valueChanges << '\n';
}

}  // namespace

// The description names these routines; the library finds them in the program.
extern "C" {

DRIVER_FEATURE_EXPORT bool HostValueChanged() {
  ++valueChanges;
  return true;
}

// A draft is printed with little toner.
DRIVER_FEATURE_EXPORT void HostQualityChanged() {
  auto* features = static_cast<CoreFeatureSet*>(plugin.getFeatures());
  CoreFeature* quality = features->FindFeatureInFeatureList("Quality");
  CoreFeature* saveToner = features->FindFeatureInFeatureList("SaveToner");
  std::string name;
  if (quality == nullptr || saveToner == nullptr) return;
  if (!quality->getFeatureProperty("ValueString", name)) return;
  saveToner->setFeatureProperty("ValueString", std::string(name == "Draft" ? "On" : "Off"));
}

}  // extern "C"

int main(int count, char** arguments) {
  if (count < 4) {
    std::cerr << "usage: minimal_host PLUGIN DESCRIPTION STEM [NAME=VALUE]...\n";
    return 2;
  }
  try {
    run(count, arguments);
    return 0;
  } catch (const std::exception& problem) {
    std::cerr << "minimal_host: " << problem.what() << '\n';
    return 1;
  }
}

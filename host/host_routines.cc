#include "host/host_routines.h"

#include "AttributeMap.h"
#include "XMLDocument.h"
#include "XMLParser.h"

#include "host/console.h"

namespace driver_feature {

namespace {

long updates = 0;
const Model* loadTarget = nullptr;

Refusal applyElement(void* element) {
  AttributeMap attributes;
  pParserInstance->attributes(element, attributes);
  Setting setting;
  if (!attributes.loadMapVariable("Name", setting.name, nullptr)) {
    return "there is no attribute \"Name\"; name a feature with it";
  }
  if (!attributes.loadMapVariable("Value", setting.value, nullptr)) {
    return "there is no attribute \"Value\"; give the value of \"" + setting.name + "\" with it";
  }
  if (loadTarget == nullptr) return "no description is loaded; load one first";
  return applySetting(*loadTarget, setting);
}

}  // namespace

long updateCount() {
  return updates;
}

void setLoadTarget(const Model* model) {
  loadTarget = model;
}

}  // namespace driver_feature

bool DriverFeatureHostUpdate() {
  ++driver_feature::updates;
  return true;
}

int DriverFeatureHostLoad(void* element, int /*mode*/) {
  int refused = 0;
  for (void* child = pParserInstance->firstChild(element); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    const auto refusal = driver_feature::applyElement(child);
    if (!refusal) continue;
    ++refused;
    driver_feature::complain("setting in line " + std::to_string(XMLDocument::lineOf(child)) +
                             ": " + *refusal);
  }
  return refused;
}

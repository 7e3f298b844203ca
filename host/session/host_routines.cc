#include "host/session/host_routines.h"

#include "AttributeMap.h"
#include "XMLDocument.h"

#include "host/description/xml_element.h"

namespace driver_feature::host {

namespace {

long updates = 0;
LoadTarget loadTarget;

Result<> applyElement(void* element) {
  AttributeMap attributes;
  pParserInstance->attributes(element, attributes);
  std::string name;
  std::string value;
  if (!attributes.loadMapVariable("Name", name, nullptr)) {
    return refused("there is no attribute \"Name\"; name a feature with it");
  }
  if (!attributes.loadMapVariable("Value", value, nullptr)) {
    return refused("there is no attribute \"Value\"; give the value of \"" + name + "\" with it");
  }
  if (!loadTarget.set) return refused("no description is loaded; load one first");
  return loadTarget.set(name, value);
}

}  // namespace

long updateCount() {
  return updates;
}

void setLoadTarget(LoadTarget target) {
  loadTarget = std::move(target);
}

}  // namespace driver_feature::host

bool DriverFeatureHostUpdate() {
  ++driver_feature::host::updates;
  return true;
}

int DriverFeatureHostLoad(void* element, int /*mode*/) {
  int refused = 0;
  driver_feature::host::forEachChild(element, [&refused](void* child) {
    const auto result = driver_feature::host::applyElement(child);
    if (result) return;
    ++refused;
    const auto& report = driver_feature::host::loadTarget.report;
    if (!report) return;
    report("setting in line " + std::to_string(XMLDocument::lineOf(child)) + ": " +
           result.error().text);
  });
  return refused;
}

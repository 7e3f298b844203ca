#include "host/session/update_callback.h"

#include <string>

#include "AttributeMap.h"
#include "Symbols.h"
#include "XMLParser.h"

#include "host/session/host_routines.h"

namespace driver_feature::host {

UpdateCallback updateCallbackOf(void* description) {
  UpdateCallback callback = &DriverFeatureHostUpdate;
  for (void* child = pParserInstance->firstChild(description); child != nullptr;
       child = pParserInstance->nextSibling(child)) {
    std::string tag;
    pParserInstance->tagName(child, tag);
    if (tag != "BaseFeatureInfo") continue;
    AttributeMap attributes;
    pParserInstance->attributes(child, attributes);
    std::string name;
    if (!attributes.loadMapVariable("DefaultCallbackHandler", name, nullptr)) continue;
    if (void* routine = FetchSymbol(name.c_str())) {
      callback = reinterpret_cast<UpdateCallback>(routine);
    }
  }
  return callback;
}

}  // namespace driver_feature::host

// Host routines that write in the place of a feature or group.
#ifndef OUTPUT_OUTPUT_ROUTINE_H_
#define OUTPUT_OUTPUT_ROUTINE_H_

#include <string>

#include "model/core_feature.h"
#include "model/vocabulary.h"

#include "Symbols.h"
#include "VORNWriter.h"

class DriverFeatureSet;

namespace driver_feature {

using TextRoutine = void (*)(DriverFeatureSet* set, std::string& text);
using TicketRoutine = void (*)(DriverFeatureSet* set, VORNWriter* writer, _xmlNode* parent);

// Reads a text property into `text`; true when it can be read and is not
// empty.
inline bool readNonEmpty(CoreFeature& object, Property property, std::string& text) {
  return object.getFeatureProperty(nameText(property), text) && !text.empty();
}

// Whether the object is written by a static group that holds it.
inline bool isInGroup(CoreFeature& object) {
  bool inGroup = false;
  object.getFeatureProperty(nameText(Property::kFeatureInGroup), &inGroup);
  return inGroup;
}

// Run the host's routine of that name, which gets the set. False when there is
// none.
inline bool runTextRoutine(const std::string& name, DriverFeatureSet* set, std::string& text) {
  const auto routine = reinterpret_cast<TextRoutine>(FetchSymbol(name.c_str()));
  if (routine == nullptr) return false;
  routine(set, text);
  return true;
}

inline bool runTicketRoutine(const std::string& name, DriverFeatureSet* set, VORNWriter& writer,
                             _xmlNode* parent) {
  const auto routine = reinterpret_cast<TicketRoutine>(FetchSymbol(name.c_str()));
  if (routine == nullptr) return false;
  routine(set, &writer, parent);
  return true;
}

}  // namespace driver_feature

#endif  // OUTPUT_OUTPUT_ROUTINE_H_

// What libDriverFeature.so exports. A host finds these names with dlsym; it
// may also link to them.
//
// None of them may be called from two threads at once.
#ifndef FRAME_EXPORTS_H_
#define FRAME_EXPORTS_H_

#include <string>

class AttributeMap;

#define DRIVER_FEATURE_EXPORT __attribute__((visibility("default")))

extern "C" {

// The plug-in record. Each is a pointer to a constant, terminated text.
extern DRIVER_FEATURE_EXPORT const char* const _KirvoSOVersion;
extern DRIVER_FEATURE_EXPORT const char* const _KirvoSODisplayName;
// The name, not the address, of the routine that takes the
// feature-description element.
extern DRIVER_FEATURE_EXPORT const char* const _KirvoNDTagHandlerFunction;

// Builds the model from the feature-description element. Returns 1; a
// description that cannot be built ends the process with status 1.
DRIVER_FEATURE_EXPORT int FeatureXMLTagHandler(void* element);

// The master set, a CoreFeatureSet*, made on the first call and never freed.
DRIVER_FEATURE_EXPORT void* GetMasterFeatureList();

// To be called once the description is loaded: from then on the features' own
// change routines run.
DRIVER_FEATURE_EXPORT void SetFeatureCreationCompleteFlag();

// Hand a ticket element to the description's custom load routine, with mode 1
// (installable options) and 0 (job ticket). Values that it sets do not
// notify; after a job ticket the update callback runs once. Always 1.
DRIVER_FEATURE_EXPORT int InstOptVORNTagHandler(void* element);
DRIVER_FEATURE_EXPORT int JobTicketVORNTagHandler(void* element);

// Read or write the property `name` of the feature, static group or dynamic
// group `target`, as its own operation of that type does, and return what that
// returns. For a target that is not there they return 0, after a level 3 and a
// level 2 line, and leave the value alone. A null name is the empty name, which
// no property has; a null value pointer returns 0. Before the master set exists,
// they make it and find nothing.
DRIVER_FEATURE_EXPORT int GetFeatureIntValue(std::string& target, const char* name, int* value);
DRIVER_FEATURE_EXPORT int GetFeatureFloatValue(std::string& target, const char* name, float* value);
DRIVER_FEATURE_EXPORT int GetFeatureBoolValue(std::string& target, const char* name, bool* value);
DRIVER_FEATURE_EXPORT int GetFeatureTextValue(std::string& target, const char* name,
                                              std::string& value);
DRIVER_FEATURE_EXPORT int SetFeatureIntValue(std::string& target, const char* name, int value);
DRIVER_FEATURE_EXPORT int SetFeatureFloatValue(std::string& target, const char* name, float value);
DRIVER_FEATURE_EXPORT int SetFeatureBoolValue(std::string& target, const char* name, bool value);
DRIVER_FEATURE_EXPORT int SetFeatureTextValue(std::string& target, const char* name,
                                              const std::string& value);

// Copy the current values of the features that `names` lists into their
// original values, and back. The values of the map are ignored. A name
// that is not there is logged and skipped. Restoring a value notifies as
// any setting of it does.
DRIVER_FEATURE_EXPORT void SaveCurrentFeatureValues(AttributeMap& names);
DRIVER_FEATURE_EXPORT void RestoreOriginalFeatureValues(AttributeMap& names);

}  // extern "C"

// Registers the routine that is called after a value changed, in place of the
// earlier one. Its result is ignored. Null is stored as given and is not
// called.
DRIVER_FEATURE_EXPORT void setDriverFeatureUpdateCallback(bool (*callback)());

#endif  // FRAME_EXPORTS_H_

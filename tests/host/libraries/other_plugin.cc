// A plug-in record of another version of the interface.

#define EXPORTED __attribute__((visibility("default")))

extern "C" {
extern EXPORTED const char* const _KirvoSOVersion;
extern EXPORTED const char* const _KirvoSODisplayName;
extern EXPORTED const char* const _KirvoNDTagHandlerFunction;
const char* const _KirvoSOVersion = "v2.0";
const char* const _KirvoSODisplayName = "Another Library";
const char* const _KirvoNDTagHandlerFunction = "FeatureXMLTagHandler";
}

// The host routines that the shipped feature descriptions name. They are built
// as liboffice_routines.so; a host loads it globally before it loads one of the
// descriptions, and finds the routines by their names.
//
// A routine that misses a feature leaves out what it would have done with it.
#ifndef DESCRIPTIONS_OFFICE_ROUTINES_H_
#define DESCRIPTIONS_OFFICE_ROUTINES_H_

#include <string>

#include "frame/exports.h"

class AttributeMap;
class DriverFeatureSet;
class VORNWriter;
struct _xmlNode;

extern "C" {

// Update callback: a value has changed. A user interface would draw itself
// anew; nothing here keeps a copy of a value, so there is nothing to do.
// Returns true.
DRIVER_FEATURE_EXPORT bool OfficeUpdate();

// Load routine. Each child of `element`, whatever its tag, is one setting: its
// attributes "Name" and "Value" are a feature and the text of its new value.
// `mode` 1 takes settings of installable options only, `mode` 0 any setting.
// Returns the number of settings that were not taken, 0 for success; the
// others are still set.
DRIVER_FEATURE_EXPORT int OfficeLoadValues(void* element, int mode);

// Change routines. Each brings other features into line with the one that has
// changed.
DRIVER_FEATURE_EXPORT void OfficeDuplexUnitChanged();  // "InstalledDuplexUnit"
DRIVER_FEATURE_EXPORT void OfficeFinisherChanged();    // "InstalledFinisher"
DRIVER_FEATURE_EXPORT void OfficePageSizeChanged();    // "PageSize"
DRIVER_FEATURE_EXPORT void OfficeHoldJobChanged();     // "HoldJob"
DRIVER_FEATURE_EXPORT void OfficeWatermarkChanged();   // "Watermark"
DRIVER_FEATURE_EXPORT void LabelCutterChanged();       // "InstalledCutter"

// PJL output routines; each appends to the header written so far.
// The first line, with the universal exit sequence and the name of the job.
DRIVER_FEATURE_EXPORT void JobWriteBegin(DriverFeatureSet* set, std::string& output);
// The last line, after which PostScript begins.
DRIVER_FEATURE_EXPORT void JobWriteEnd(DriverFeatureSet* set, std::string& output);
// The number of copies, as copies of each page or of the whole document.
DRIVER_FEATURE_EXPORT void OfficeWriteCopies(DriverFeatureSet* set, std::string& output);
// The number that releases a private job; nothing for any other job.
DRIVER_FEATURE_EXPORT void OfficeWriteHoldPin(DriverFeatureSet* set, std::string& output);

// PostScript output routines; each appends to the text written so far.
// The size of the page, taken from the option or from the two custom lengths.
DRIVER_FEATURE_EXPORT void OfficeWritePageSize(DriverFeatureSet* set, std::string& output);
// A text across every page, beneath what is printed there; nothing for "None".
DRIVER_FEATURE_EXPORT void OfficeWriteWatermark(DriverFeatureSet* set, std::string& output);
// The size of a label, made of the roll's width and the label's length.
DRIVER_FEATURE_EXPORT void LabelWritePageSize(DriverFeatureSet* set, std::string& output);

// Ticket output routines; each adds its group to `parent`, or to the ticket
// itself when that is null.
// The two lengths; nothing unless the page size is "Custom".
DRIVER_FEATURE_EXPORT void OfficeAddCustomPageSize(DriverFeatureSet* set, VORNWriter* writer,
                                                   _xmlNode* parent);
// The number that releases a private job; nothing for any other job.
DRIVER_FEATURE_EXPORT void OfficeAddHoldPin(DriverFeatureSet* set, VORNWriter* writer,
                                            _xmlNode* parent);
// Text, angle and size of the watermark; nothing for "None".
DRIVER_FEATURE_EXPORT void OfficeAddWatermark(DriverFeatureSet* set, VORNWriter* writer,
                                              _xmlNode* parent);

// One group for each record of the page exceptions, in their order.
DRIVER_FEATURE_EXPORT void OfficeAddPageExceptions(DriverFeatureSet* set, VORNWriter* writer,
                                                   _xmlNode* parent);

// Sort routine of the page exceptions: by first page, then by last page. Above
// 0 when `first` comes after `second`, below 0 when before, else 0.
DRIVER_FEATURE_EXPORT int OfficeComparePages(AttributeMap& first, AttributeMap& second);

}  // extern "C"

#endif  // DESCRIPTIONS_OFFICE_ROUTINES_H_

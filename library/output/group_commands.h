// Writes one static group and the groups nested in it.
//
// What cannot be written is logged and left out. A group that contains itself
// is not entered a second time. Output routines of the host get `set`.
#ifndef OUTPUT_GROUP_COMMANDS_H_
#define OUTPUT_GROUP_COMMANDS_H_

#include <string>

#include "model/core_feature.h"

#include "VORNWriter.h"

class DriverFeatureSet;

namespace driver_feature {

class FeatureText;

// Adds the group's node, with one node per member, to the ticket: under
// `parentNode`, or at top level when that is null. `attributeName` carries the
// group's own ticket name in and is undefined afterwards. `jobTicketAttribute`
// chooses which ticket name of the members counts and where a top-level group
// goes. `topLevel` refuses a group that another group writes.
void processVORNStaticGroup(CoreFeature& group, DriverFeatureSet* set, VORNWriter& writer,
                            std::string& attributeName, bool jobTicketAttribute,
                            _xmlNode* parentNode, bool topLevel);

// Replace `output` by the group's text: the members' texts joined and put into
// the group's command template, or what the group's routine writes; empty when
// there is neither.
void processPSStaticGroup(CoreFeature& group, DriverFeatureSet* set, std::string& output,
                          bool topLevel);
void processPJLStaticGroup(CoreFeature& group, DriverFeatureSet* set, std::string& output,
                           bool topLevel);

// The same for many groups, in the language of `featureText`.
void processTextStaticGroup(CoreFeature& group, FeatureText& featureText, std::string& output,
                            bool topLevel);

}  // namespace driver_feature

#endif  // OUTPUT_GROUP_COMMANDS_H_

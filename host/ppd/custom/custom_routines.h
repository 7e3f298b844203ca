// The output routines that imported descriptions name: EmitPpdCustom00 to
// EmitPpdCustom99. Each writes the text of one choice "Custom" with the values
// that the user has given.
//
// A routine finds its feature by its own name, in AddPSCallbackRoutine or
// AddPJLCallbackRoutine. The feature's option holds the text without the
// values as its command, and the plan for them (see custom_text.h) as its
// TESKTicketCommand.
#ifndef HOST_PPD_CUSTOM_CUSTOM_ROUTINES_H_
#define HOST_PPD_CUSTOM_CUSTOM_ROUTINES_H_

#include <string>

class CoreFeatureSet;

namespace driver_feature::ppd {

// The number of routines. A PPD file with more custom choices loses the rest.
inline constexpr long kCustomRoutines = 100;

// "EmitPpdCustom07" for 7.
std::string customRoutineName(long number);

// Appends to `output` what the routine of that number writes: nothing if its
// choice is not selected.
void writeCustomText(CoreFeatureSet& set, long number, std::string& output);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_CUSTOM_CUSTOM_ROUTINES_H_

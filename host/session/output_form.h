// The forms of the library's outputs.
#ifndef HOST_SESSION_OUTPUT_FORM_H_
#define HOST_SESSION_OUTPUT_FORM_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/core_feature_set.h"

namespace driver_feature::host {

// The library's codes of its output forms.
enum class OutputForm : int { kPjl = 0, kPostScript = 1, kTicket = 2 };

// The form that "ps", "pjl" or "ticket" names; nothing for any other name.
std::optional<OutputForm> formNamed(std::string_view name);

// The names of all forms, in byte order.
std::vector<std::string> formNames();

// An output of the features.
std::string outputOf(CoreFeatureSet& features, OutputForm form);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_OUTPUT_FORM_H_

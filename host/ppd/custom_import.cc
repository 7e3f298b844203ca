#include "host/ppd/custom_import.h"

#include "host/ppd/choice_text.h"

namespace driver_feature {

std::string importCustomChoice(ImportState& state, const ppd_choice_t& choice,
                               const SectionEntry& /*entry*/, const std::string& /*selection*/) {
  state.losses.note(LossKind::kOption, "the text of choice " + titleOf(*choice.option, choice) +
                                           " and its parameters");
  return "";
}

}  // namespace driver_feature

// Features that staple, punch, fold and the like, as IPP's "finishings".
#ifndef HOST_IPP_FINISHINGS_H_
#define HOST_IPP_FINISHINGS_H_

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

inline constexpr int kNoFinishing = 3;

// Adds the choices that are finishings, and for each such feature the one for none.
void addFinishings(AttributeTable& table, const Capabilities& all);

// Whether "finishings" carries every choice of the feature.
bool carriesAll(const AttributeTable& table, const FeatureCapability& feature);

// The keyword for one, such as "staple-top-left", as finishing-template has it.
std::string finishingKeyword(int number);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_FINISHINGS_H_

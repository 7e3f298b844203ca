// A readable listing of the whole model, for people.
#ifndef DIAGNOSTICS_DUMP_H_
#define DIAGNOSTICS_DUMP_H_

#include <string>

#include "model/core_feature_set.h"
#include "model/feature_list.h"

namespace driver_feature {

// Features are counted and fetched through the set's operations, which a host may
// have replaced.
std::string dumpOf(CoreFeatureSet& features, const FeatureList& groups);

}  // namespace driver_feature

#endif  // DIAGNOSTICS_DUMP_H_

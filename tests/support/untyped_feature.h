// A host's feature and option as a compiler makes them without type
// information. Nothing may ask for their types.
#ifndef TESTS_SUPPORT_UNTYPED_FEATURE_H_
#define TESTS_SUPPORT_UNTYPED_FEATURE_H_

#include "model/core_feature.h"

namespace driver_feature::testing {

// A list with the PostScript command "untyped %s;", whose current option is one
// of the same kind with the command "option". Lives as long as the program.
CoreFeature& untypedFeature();

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_UNTYPED_FEATURE_H_

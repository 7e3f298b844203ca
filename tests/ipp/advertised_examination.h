// Whether everything that a printer advertises of one description works.
#ifndef TESTS_IPP_ADVERTISED_EXAMINATION_H_
#define TESTS_IPP_ADVERTISED_EXAMINATION_H_

#include <string>
#include <vector>

#include "host/ipp/translation.h"
#include "host/session/model.h"

namespace driver_feature::testing {

// Tries every advertised value on the model. Returns the number of features, the
// number of values, and the faults, a line for each.
std::vector<std::string> examineAdvertised(const host::Model& model,
                                           const ipp::Translation& translation);

}  // namespace driver_feature::testing

#endif  // TESTS_IPP_ADVERTISED_EXAMINATION_H_

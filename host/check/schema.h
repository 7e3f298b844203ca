// The RELAX NG schema of feature descriptions finds what the rules miss.
#ifndef HOST_CHECK_SCHEMA_H_
#define HOST_CHECK_SCHEMA_H_

#include <string>

#include "host/check/findings.h"
#include "host/description/element.h"

namespace driver_feature::check {

// The text of the schema.
extern const char* const kFeatureDescriptionSchema;

// Adds text between the elements, which no rule sees, and what the schema
// does not allow in the description: a finding for each
// element; none for an element that `findings` already has a place of, itself
// or inside it. `document` is the whole text, which has been read before.
void checkSchema(const std::string& document, const host::Element& description, Findings& findings);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_SCHEMA_H_

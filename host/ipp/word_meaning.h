// The meaning of an attribute's value, as text, for its feature.
#ifndef HOST_IPP_WORD_MEANING_H_
#define HOST_IPP_WORD_MEANING_H_

#include <optional>
#include <string>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// The value of a number or a text; nothing when its limits do not allow it.
std::optional<std::string> valueFor(const FeatureCapability& feature, const std::string& word);

// The value for the attribute's feature. An empty one for a word of a list that
// changes nothing; nothing for an unsupported word.
std::optional<std::string> valueOf(const JobAttribute& attribute, const std::string& word);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_WORD_MEANING_H_

// The conditions of rules as values of attributes.
#ifndef HOST_IPP_CONSTRAINT_PARTS_H_
#define HOST_IPP_CONSTRAINT_PARTS_H_

#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"
#include "host/ipp/ipp_values.h"

namespace driver_feature::ipp {

// One condition as values of an attribute, or as a range of numbers.
struct Part {
  std::string attribute;
  Syntax syntax = Syntax::kKeyword;
  bool isMediaMember = false;
  bool isRange = false;
  IntegerRange range;
  std::vector<std::string> words;
  std::string remedy;  // A word for which the condition does not hold; may be empty.
};

// The parts of a rule, once for each combination of attributes.
using Variants = std::vector<std::vector<Part>>;

// None when the rule cannot be expressed, or never applies.
Variants variantsOf(const AttributeTable& table, const Capabilities& all,
                    const RuleCapability& rule);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_CONSTRAINT_PARTS_H_

// The attributes of a description's elements, as data.
#ifndef HOST_CHECK_ATTRIBUTE_TABLE_H_
#define HOST_CHECK_ATTRIBUTE_TABLE_H_

#include <span>
#include <string>
#include <vector>

#include "host/description/element.h"

namespace driver_feature::check {

enum class ValueForm : unsigned char { kText, kBool, kInt, kFloat, kYesNo };

// One attribute of one kind of element. An attribute whose form depends on
// the type of feature has one row for each form.
struct AttributeRule {
  const char* name;
  host::Role role;
  ValueForm form = ValueForm::kText;
  unsigned kinds = ~0U;  // The types of feature that have it, a bit for each.
};

std::span<const AttributeRule> attributeRules();

// The row by which the library reads this attribute of this element; null
// when it does not read it. Features of no known type have all attributes.
const AttributeRule* findRule(const host::Element& element, const std::string& attribute);

// The attribute names that elements like this one may have.
std::vector<std::string> attributeNames(const host::Element& element);

// Where an attribute of that name belongs: "IntEntry features", "options";
// empty when no element has it.
std::string ownersOf(const std::string& attribute);

}  // namespace driver_feature::check

#endif  // HOST_CHECK_ATTRIBUTE_TABLE_H_

// Values of attributes as text, and texts as values.
#ifndef HOST_IPP_IPP_VALUES_H_
#define HOST_IPP_IPP_VALUES_H_

#include <cups/ipp.h>

#include <string>
#include <vector>

#include "host/ipp/attribute_table.h"

namespace driver_feature::ipp {

// The group of the attributes that describe a printer.
inline constexpr ipp_tag_t kPrinter = IPP_TAG_PRINTER;

// Adds an attribute with these values; nothing without values.
void addWords(ipp_t* target, ipp_tag_t group, const std::string& name, Syntax syntax,
              const std::vector<std::string>& words);

void addKeywords(ipp_t* target, ipp_tag_t group, const std::string& name,
                 const std::vector<std::string>& words);

void addIntegers(ipp_t* target, ipp_tag_t group, const std::string& name, ipp_tag_t tag,
                 const std::vector<int>& numbers);

// Adds a collection or several; they are freed.
void addCollections(ipp_t* target, ipp_tag_t group, const std::string& name,
                    std::vector<ipp_t*> collections);

// Each value as text: "600x600dpi", "1-4", "true". Values that have no text, such as
// collections, are left out.
std::vector<std::string> wordsIn(ipp_attribute_t* attribute);

// The range of an integer feature; all numbers without limits.
struct IntegerRange {
  int least = 0;
  int most = 0;
};
IntegerRange rangeOf(const FeatureCapability& feature);

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_IPP_VALUES_H_

// The properties that a feature's PostScript or PJL text is made of.
#ifndef OUTPUT_TEXT_PROPERTIES_H_
#define OUTPUT_TEXT_PROPERTIES_H_

#include <string>
#include <typeinfo>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"
#include "output/text_dialect.h"

namespace driver_feature {

// Where the library's own objects have these properties. Names are the
// platform's to resolve, which takes most of the time when it is done for each
// of many features; here they are resolved once for all of them.
struct TextProperties {
  // Null for each name that the platform does not know.
  static TextProperties find(const TextDialect& dialect) {
    return {
        DriverFeature::findPlainMember<bool>(nameText(Property::kFeatureInGroup)),
        DriverFeature::findPlainMember<std::string>(nameText(dialect.commandProperty)),
        DriverFeature::findPlainMember<std::string>(nameText(dialect.routineProperty)),
        DriverFeature::findPlainMember<std::string>(nameText(Property::kCurrentTextValue)),
        DriverFeature::findPlainMember<int>(nameText(Property::kCurrentIntValue)),
        DriverFeature::findPlainMember<float>(nameText(Property::kCurrentFloatValue)),
        DriverFeatureOption::findPlainMember(nameText(dialect.commandProperty)),
    };
  }

  // Whether the platform has resolved all of the names, as it should.
  bool areKnown() const {
    return inGroup != nullptr && command != nullptr && routine != nullptr && text != nullptr &&
           number != nullptr && fraction != nullptr && optionCommand != nullptr;
  }

  const bool DriverFeature::*inGroup;
  const std::string DriverFeature::*command;
  const std::string DriverFeature::*routine;
  const std::string DriverFeature::*text;
  const int DriverFeature::*number;
  const float DriverFeature::*fraction;
  const std::string DriverFeatureOption::*optionCommand;
};

// In the Itanium C++ ABI, a virtual table has the type's information at the place
// before its first operation. Where it has not, typeOf() would read something else.
#if !defined(__GXX_ABI_VERSION) || !defined(__GXX_RTTI)
#error "needs the Itanium C++ ABI and type information"
#endif

// The type that the object's virtual table names. Null when the object is one of
// a host that was compiled without type information.
template <class Interface>
const std::type_info* typeOf(const Interface& object) {
  const auto* table = *reinterpret_cast<const std::type_info* const* const*>(&object);
  return table[-1];
}

// The object as one of exactly that class of the library's own, or null.
template <class Own, class Interface>
const Own* asOwn(const Interface& object) {
  return typeOf(object) == &typeid(Own) ? static_cast<const Own*>(&object) : nullptr;
}

}  // namespace driver_feature

#endif  // OUTPUT_TEXT_PROPERTIES_H_

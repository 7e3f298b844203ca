// The library's own objects among those that a host may have made: they can be
// read where they hold their values.
#ifndef MODEL_OWN_OBJECTS_H_
#define MODEL_OWN_OBJECTS_H_

#include <typeinfo>

namespace driver_feature {

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

#endif  // MODEL_OWN_OBJECTS_H_

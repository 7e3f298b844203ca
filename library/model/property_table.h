// What a class knows about its properties, as data: one row per property.
//
// A class declares a nested `struct Properties` and defines in its source file
//
//   struct Sample::Properties {
//     static constexpr Kept<Sample, std::string> kText{&Sample::kept_};
//     static constexpr PropertyTable kTable{std::to_array<PropertyRow<Sample, Property>>({
//         {Property::kName, kText, Access::kBoth},
//         {Property::kCurrentIntValue, &Sample::current_, Access::kBoth, Needs::kInt,
//         Rule::kChange},
//     })};
//   };
//
// A value is in a member of the object or, with all texts, in its PropertyStore.
// Its type decides which overloads accept the property. A name without a row of
// that type and access is treated as unknown.
#ifndef MODEL_PROPERTY_TABLE_H_
#define MODEL_PROPERTY_TABLE_H_

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "model/property_store.h"
#include "model/vocabulary.h"

namespace driver_feature {

enum class Access : unsigned char { kSet, kGet, kBoth };

// The value type that a feature must have before the property can be set.
enum class Needs : signed char {
  kInt = kIntValue,
  kText = kTextValue,
  kFloat = kFloatValue,
  kAny,
};

// What storing the property does beyond storing it.
enum class Rule : unsigned char {
  kPlain,
  kChange,       // A current value: a change runs the change notification.
  kFlag,         // Reported to the host at every store.
  kRoutine,      // A routine's name: the routine is looked up.
  kFeatureType,  // Checked, and decides the value type.
  kValueType,    // Checked.
  kValueString,  // The current value, of any type, as text.
  kHideEmpty,    // Read as absent while it is empty.
  kTemplate,     // A command template: kept as it is, and read.
};

// A value that is kept in the object's store.
template <class Object, class Value>
struct Kept {
  PropertyStore Object::*store;
};

template <class Object, class Name>
struct PropertyRow {
  using Member = std::variant<Kept<Object, std::string>, Kept<Object, int>, Kept<Object, float>,
                              int Object::*, float Object::*, bool Object::*>;

  template <class Value>
  constexpr bool holds() const {
    if constexpr (std::is_same_v<Value, std::string>) {
      return std::holds_alternative<Kept<Object, Value>>(member);
    } else if constexpr (std::is_same_v<Value, bool>) {
      return std::holds_alternative<bool Object::*>(member);
    } else {
      return std::holds_alternative<Value Object::*>(member) ||
             std::holds_alternative<Kept<Object, Value>>(member);
    }
  }

  Name property;
  Member member;
  Access access;
  Needs needs = Needs::kAny;
  Rule rule = Rule::kPlain;
};

template <class Object, class Name, std::size_t kRows>
class PropertyTable {
 public:
  using Row = PropertyRow<Object, Name>;

  consteval explicit PropertyTable(const std::array<Row, kRows>& rows) : rows_(rows) {
    for (std::size_t i = 0; i < kRows; ++i) {
      auto& position = positions_[static_cast<std::size_t>(rows_[i].property)];
      if (position != 0) throw "a property has two rows";
      position = static_cast<unsigned char>(i + 1);
    }
  }

  // The row that lets a Value be set or read (`access` is one of the two)
  // under `name`, or null.
  template <class Value>
  const Row* find(const std::string& name, Access access) const {
    const auto property = lookUp(name);
    if (!property) return nullptr;
    const std::size_t position = positions_[static_cast<std::size_t>(*property)];
    if (position == 0) return nullptr;
    const Row& row = rows_[position - 1];
    const bool accessible = row.access == Access::kBoth || row.access == access;
    return accessible && row.template holds<Value>() ? &row : nullptr;
  }

  // The row of a property that has one.
  constexpr const Row& at(Name property) const {
    return rows_[positions_[static_cast<std::size_t>(property)] - 1U];
  }

 private:
  static auto lookUp(const std::string& name) {
    if constexpr (std::is_same_v<Name, Property>) {
      return findProperty(name);
    } else {
      return findOptionProperty(name);
    }
  }

  std::array<Row, kRows> rows_;
  // Per property the number of its row counted from 1; 0 where it has none.
  std::array<unsigned char, kPropertyCount> positions_{};
};

// The value that a row names. The row must have been found for its type. A text
// is valid until the object changes.
template <class Value, class Object, class Name>
auto valueOf(const Object& object, const PropertyRow<Object, Name>& row) {
  const auto number = static_cast<std::size_t>(row.property);
  if constexpr (std::is_same_v<Value, std::string>) {
    return (object.*std::get_if<Kept<Object, Value>>(&row.member)->store).text(number);
  } else if constexpr (std::is_same_v<Value, bool>) {
    return object.*(*std::get_if<bool Object::*>(&row.member));
  } else {
    if (const auto* member = std::get_if<Value Object::*>(&row.member)) return object.*(*member);
    const auto store = std::get_if<Kept<Object, Value>>(&row.member)->store;
    return (object.*store).template number<Value>(number);
  }
}

template <class Value, class Object, class Name>
void storeValue(Object& object, const PropertyRow<Object, Name>& row, const Value& value) {
  const auto property = static_cast<std::size_t>(row.property);
  if constexpr (std::is_same_v<Value, std::string>) {
    (object.*std::get_if<Kept<Object, Value>>(&row.member)->store).setText(property, value);
  } else if constexpr (std::is_same_v<Value, bool>) {
    object.*(*std::get_if<bool Object::*>(&row.member)) = value;
  } else if (const auto* member = std::get_if<Value Object::*>(&row.member)) {
    object.*(*member) = value;
  } else {
    (object.*std::get_if<Kept<Object, Value>>(&row.member)->store).setNumber(property, value);
  }
}

}  // namespace driver_feature

#endif  // MODEL_PROPERTY_TABLE_H_

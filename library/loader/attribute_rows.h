// The attributes of a description's elements, as data: one row per attribute,
// in the order in which they are read. A table is a constant that
// applyAttributes() takes as its template argument.
#ifndef LOADER_ATTRIBUTE_ROWS_H_
#define LOADER_ATTRIBUTE_ROWS_H_

#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include "model/driver_feature.h"
#include "model/driver_feature_option.h"

#include "AttributeMap.h"

namespace driver_feature {

enum class AttributeKind : unsigned char { kText, kBool, kInt, kFloat };

// An attribute sets the property of its own name unless it names others, in
// the order of setting.
struct AttributeRow {
  AttributeKind kind;
  const char* attribute;
  const char* property = nullptr;
  const char* secondProperty = nullptr;
};

// A row with its names as the texts that maps and objects take. An empty second
// property means that there is none.
struct NamedRow {
  explicit NamedRow(const AttributeRow& row)
      : kind(row.kind),
        attribute(row.attribute),
        property(row.property != nullptr ? row.property : row.attribute),
        secondProperty(row.secondProperty != nullptr ? row.secondProperty : "") {}

  AttributeKind kind;
  std::string attribute;
  std::string property;
  std::string secondProperty;
};

using NamedRows = std::vector<NamedRow>;

// The rows of a table with their names. Made once, since making them anew for
// each of many elements takes longer than looking for them there: at the first
// use, because a lack of memory while the library itself is loaded would end
// the host. Never destroyed, because a host may load while it ends.
template <const auto& kTable>
const NamedRows& namedRows() {
  static const NamedRows& rows = *new NamedRows(std::begin(kTable), std::end(kTable));
  return rows;
}

// Sets a property of a feature without notification. Required: flags are still
// reported to the host's update callback.
template <class Value>
void assign(DriverFeature& feature, const std::string& property, const Value& value) {
  if constexpr (std::is_same_v<Value, bool>) {
    feature.setFeatureProperty(property, value);
  } else {
    feature.setFeaturePropertyWithConstraintControl(property, value, true);
  }
}

template <class Value>
void assign(DriverFeatureOption& option, const std::string& property, const Value& value) {
  option.setOptionProperty(property, value);
}

// Groups have no silent setter for texts, and need none.
template <class Value>
void assign(CoreFeature& group, const std::string& property, const Value& value) {
  group.setFeatureProperty(property, value);
}

// Reads an attribute as a Value; false when it is absent or does not convert
// (the platform logs that).
template <class Value>
bool readAttribute(const AttributeMap& attributes, const std::string& name, Value& value) {
  return attributes.loadMapVariable(name, value, static_cast<const Value*>(nullptr));
}

template <class Value, class Object>
void assignAll(const NamedRow& row, const Value& value, Object& object) {
  assign(object, row.property, value);
  if (!row.secondProperty.empty()) assign(object, row.secondProperty, value);
}

// Whether the attribute is present.
template <class Read, class Store, class Object>
bool applyAttribute(const NamedRow& row, const AttributeMap& attributes, Read& value,
                    Object& object) {
  if (!readAttribute(attributes, row.attribute, value)) return false;
  if constexpr (std::is_same_v<Read, Store>) {
    assignAll(row, value, object);
  } else {
    assignAll(row, static_cast<Store>(value), object);
  }
  return true;
}

template <class Read, class Store, class Object>
bool applyAttribute(const NamedRow& row, const AttributeMap& attributes, Object& object) {
  Read value{};
  return applyAttribute<Read, Store>(row, attributes, value, object);
}

// Texts are read into `text`.
template <class Object>
bool applyRow(const NamedRow& row, const AttributeMap& attributes, std::string& text,
              Object& object) {
  if (row.kind == AttributeKind::kText) {
    text.clear();
    return applyAttribute<std::string, std::string>(row, attributes, text, object);
  }
  if (row.kind == AttributeKind::kBool) {
    return applyAttribute<bool, bool>(row, attributes, object);
  }
  if constexpr (std::is_same_v<Object, DriverFeature>) {
    if (row.kind == AttributeKind::kInt) return applyAttribute<int, int>(row, attributes, object);
    return applyAttribute<double, float>(row, attributes, object);
  }
  return false;
}

// Sets the properties of the attributes that are present, in the order of the
// rows. `left` counts the attributes that were not found yet: the search stops
// when it is 0. `text` is room for the texts, which many objects can share.
template <class Object>
void applyAttributes(const NamedRows& rows, const AttributeMap& attributes, std::string& text,
                     Object& object, long& left) {
  for (const NamedRow& row : rows) {
    if (left == 0) return;
    if (applyRow(row, attributes, text, object)) --left;
  }
}

template <const auto& kTable, class Object>
void applyAttributes(const AttributeMap& attributes, std::string& text, Object& object, long left) {
  applyAttributes(namedRows<kTable>(), attributes, text, object, left);
}

}  // namespace driver_feature

#endif  // LOADER_ATTRIBUTE_ROWS_H_

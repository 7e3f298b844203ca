// What a program reads of groups, through the library's interfaces.
//
// The library's set lists features by number but finds groups by name only, so
// the names come from the description.
#ifndef HOST_SESSION_GROUP_VIEW_H_
#define HOST_SESSION_GROUP_VIEW_H_

#include <optional>
#include <string>
#include <vector>

#include "host/description/description_index.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"

namespace driver_feature::host {

// The members of a static group.
class StaticGroupView {
 public:
  explicit StaticGroupView(IntermediateStaticFeatureGroup& group) : group_(&group) {}

  bool isTemplate() const;  // The shape of a dynamic group's records.
  std::vector<std::string> memberNames() const;
  // The template of "PJLCommand" or "PSCommand"; empty without one.
  std::string command(const std::string& property) const;

 private:
  IntermediateStaticFeatureGroup* group_;
};

// One record of a dynamic group: the values of its members, in the order of
// the template.
using Record = std::vector<std::string>;

// The records of a dynamic group.
class DynamicGroupView {
 public:
  DynamicGroupView(IntermediateDynamicFeatureGroup& group, StaticGroupView shape,
                   IntermediateStaticFeatureGroup& shapeGroup)
      : group_(&group), shape_(shape), shapeGroup_(&shapeGroup) {}

  std::vector<std::string> memberNames() const { return shape_.memberNames(); }
  int count() const;

  // All records. The library reads a record by loading it into the template,
  // whose own values are put back afterwards.
  std::vector<Record> records() const;

  // Adds a record where the description's sort routine wants it. False when
  // the library refuses it.
  bool add(const Record& values) const;

  // Adds a record after the others. False when the library refuses it.
  bool addUnsorted(const Record& values) const;

  void removeAll() const;

  // Removes one record, counted from 0. False when the library refuses it.
  bool remove(unsigned index) const;

  // Puts the records in the order of the description's sort routine. False when it
  // has none.
  bool sort() const;

 private:
  bool add(const Record& values, bool sort) const;
  Record templateValues() const;
  void setTemplateValues(const Record& values) const;

  IntermediateDynamicFeatureGroup* group_;
  StaticGroupView shape_;
  IntermediateStaticFeatureGroup* shapeGroup_;
};

// The group of that name; nothing when the set has none, or when a feature of
// the same name is found first.
std::optional<StaticGroupView> findStaticGroup(CoreFeatureSet& set, const std::string& name);
std::optional<DynamicGroupView> findDynamicGroup(CoreFeatureSet& set, const DescriptionIndex& index,
                                                 const std::string& name);

}  // namespace driver_feature::host

#endif  // HOST_SESSION_GROUP_VIEW_H_

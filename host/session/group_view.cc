#include "host/session/group_view.h"

#include "host/session/log.h"

#include "AttributeMap.h"

namespace driver_feature::host {

namespace {

// The library's type codes of groups, and of the features that hold a float.
constexpr int kFloatEntry = 4;
constexpr int kStaticGroup = 6;
constexpr int kTemplate = 7;
constexpr int kDynamicGroup = 8;

std::string textOf(CoreFeature& object, const std::string& property) {
  std::string text;
  object.getFeatureProperty(property, text);
  return text;
}

CoreFeature* find(CoreFeatureSet& set, const std::string& name) {
  const LogSilence silence;
  return set.FindFeatureInFeatureList(name);
}

// The type code says which interface an object has.
IntermediateStaticFeatureGroup* asStaticGroup(CoreFeature* object) {
  const int type = object != nullptr ? object->getFeatureType() : 0;
  if (type != kStaticGroup && type != kTemplate) return nullptr;
  return static_cast<IntermediateStaticFeatureGroup*>(object);
}

template <class Visit>
void forEachMember(IntermediateStaticFeatureGroup& group, const Visit& visit) {
  const auto count = static_cast<unsigned>(group.fetchNumberOfFeaturesInGroup());
  for (unsigned i = 0; i < count; ++i) {
    if (CoreFeature* member = group.fetchFeatureInGroupByIndex(i)) visit(*member);
  }
}

}  // namespace

bool StaticGroupView::isTemplate() const {
  return group_->getFeatureType() == kTemplate;
}

std::vector<std::string> StaticGroupView::memberNames() const {
  std::vector<std::string> names;
  forEachMember(*group_, [&](CoreFeature& member) { names.push_back(textOf(member, "Name")); });
  return names;
}

std::string StaticGroupView::command(const std::string& property) const {
  return textOf(*group_, property);
}

int DynamicGroupView::count() const {
  return group_->fetchNumberOfDynamicEntries();
}

Record DynamicGroupView::templateValues() const {
  Record values;
  forEachMember(*shapeGroup_, [&](CoreFeature& member) {
    if (member.getFeatureType() == kFloatEntry) {
      // The value's own text has six decimals and may spell a different number.
      float number = 0;
      member.getFeatureProperty(std::string("CurrentFloatValue"), &number);
      values.push_back(numberText(number));
    } else {
      values.push_back(textOf(member, "ValueString"));
    }
  });
  return values;
}

void DynamicGroupView::setTemplateValues(const Record& values) const {
  std::size_t i = 0;
  forEachMember(*shapeGroup_, [&](CoreFeature& member) {
    // Groups in a template have no value for a record.
    if (member.getFeatureType() < kStaticGroup) {
      static_cast<IntermediateCoreFeature&>(member).setFeaturePropertyWithConstraintControl(
          std::string("ValueString"), values[i], true);
    }
    ++i;
  });
}

std::vector<Record> DynamicGroupView::records() const {
  const Record before = templateValues();
  std::vector<Record> all;
  for (int i = 0; i < count(); ++i) {
    group_->getDynamicEntryByIndex(static_cast<unsigned>(i));
    all.push_back(templateValues());
  }
  if (!all.empty()) setTemplateValues(before);
  return all;
}

bool DynamicGroupView::add(const Record& values) const {
  return add(values, true);
}

bool DynamicGroupView::addUnsorted(const Record& values) const {
  return add(values, false);
}

void DynamicGroupView::removeAll() const {
  group_->removeAllDynamicEntries();
}

bool DynamicGroupView::remove(unsigned index) const {
  return group_->removeDynamicEntryByIndex(index);
}

bool DynamicGroupView::sort() const {
  return group_->sortList();
}

bool DynamicGroupView::add(const Record& values, bool sort) const {
  AttributeMap map;
  const std::vector<std::string> names = memberNames();
  for (std::size_t i = 0; i < names.size(); ++i) map[names[i]] = values[i];
  return group_->addStaticGroupToDynamicGroupWithSort(map, sort);
}

std::optional<StaticGroupView> findStaticGroup(CoreFeatureSet& set, const std::string& name) {
  IntermediateStaticFeatureGroup* group = asStaticGroup(find(set, name));
  if (group == nullptr) return std::nullopt;
  return StaticGroupView(*group);
}

std::optional<DynamicGroupView> findDynamicGroup(CoreFeatureSet& set, const DescriptionIndex& index,
                                                 const std::string& name) {
  CoreFeature* object = find(set, name);
  if (object == nullptr || object->getFeatureType() != kDynamicGroup) return std::nullopt;
  IntermediateStaticFeatureGroup* shape = asStaticGroup(find(set, index.templateOf(name)));
  if (shape == nullptr) return std::nullopt;
  return DynamicGroupView(*static_cast<IntermediateDynamicFeatureGroup*>(object),
                          StaticGroupView(*shape), *shape);
}

}  // namespace driver_feature::host

// The slot number and the signature of every operation of the interfaces.
//
// Each row names an operation by its exact type: a changed signature does not
// compile. The slot is in the pointer to the member function itself,
// which on x86 holds 1 + slot * sizeof(void*). No compiler reads that in a
// constant expression, so that the numbers are compared at run time.

#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "model/core_feature.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"

namespace driver_feature::testing {
namespace {

using Text = const std::string&;

// The slot that a pointer to a virtual member function denotes, or -1.
template <class Pointer>
std::ptrdiff_t slotOf(Pointer pointer) {
  struct {
    std::ptrdiff_t function;
    std::ptrdiff_t adjustment;
  } parts{};
  static_assert(sizeof(parts) == sizeof(pointer));
  std::memcpy(&parts, &pointer, sizeof(pointer));
  constexpr std::ptrdiff_t kSlot = sizeof(void*);
  if (parts.adjustment != 0 || parts.function % kSlot != 1) return -1;
  return parts.function / kSlot;
}

// Compares a slot. The signature selects the overload.
template <class Interface, class Signature>
void expectSlot(std::ptrdiff_t slot, Signature Interface::*operation) {
  EXPECT_EQ(slotOf(operation), slot);
}

TEST(SlotNumbersTest, CoreOption_EachOperation_HasItsSlot) {
  using I = CoreOption;
  expectSlot<I, bool(Text, std::string&)>(0, &I::getOptionProperty);
  expectSlot<I, bool(Text, bool*)>(1, &I::getOptionProperty);
  expectSlot<I, bool(Text, Text)>(2, &I::setOptionProperty);
  expectSlot<I, bool(Text, bool)>(3, &I::setOptionProperty);
}

TEST(SlotNumbersTest, IntermediateCoreOption_EachOperation_HasItsSlot) {
  using I = IntermediateCoreOption;
  expectSlot<I, bool()>(4, &I::isConstraintSetEmpty);
  expectSlot<I, bool(const long&)>(5, &I::addConstraint);
  expectSlot<I, bool(const long&)>(6, &I::removeConstraint);
}

TEST(SlotNumbersTest, CoreFeature_EachOperation_HasItsSlot) {
  using I = CoreFeature;
  expectSlot<I, bool(Text, Text)>(0, &I::setFeatureProperty);
  expectSlot<I, bool(Text, int)>(1, &I::setFeatureProperty);
  expectSlot<I, bool(Text, float)>(2, &I::setFeatureProperty);
  expectSlot<I, bool(Text, bool)>(3, &I::setFeatureProperty);
  expectSlot<I, bool(Text, std::string&)>(4, &I::getFeatureProperty);
  expectSlot<I, bool(Text, int*)>(5, &I::getFeatureProperty);
  expectSlot<I, bool(Text, bool*)>(6, &I::getFeatureProperty);
  expectSlot<I, bool(Text, float*)>(7, &I::getFeatureProperty);
  expectSlot<I, int()>(8, &I::getFeatureType);
  expectSlot<I, int()>(9, &I::fetchNumberOfOptions);
  expectSlot<I, int(Text)>(10, &I::fetchOptionIndexByName);
  expectSlot<I, CoreOption*()>(11, &I::fetchCurrentOption);
  expectSlot<I, CoreOption*(Text, Text)>(12, &I::fetchOptionByName);
  expectSlot<I, CoreOption*(std::string)>(13, &I::fetchOptionByName);
  expectSlot<I, CoreOption*(int)>(14, &I::fetchOptionByIndex);
}

TEST(SlotNumbersTest, IntermediateCoreFeature_EachOperation_HasItsSlot) {
  using I = IntermediateCoreFeature;
  expectSlot<I, int()>(15, &I::getFeatureOptionCount);
  expectSlot<I, bool(Text, long, bool)>(16, &I::applyOptionConstraint);
  expectSlot<I, bool(Text, Text, bool)>(17, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, int, bool)>(18, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, float, bool)>(19, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, bool, bool)>(20, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool()>(21, &I::isConstraintSetEmpty);
  expectSlot<I, bool(const long&)>(22, &I::addConstraint);
  expectSlot<I, bool(const long&)>(23, &I::removeConstraint);
  expectSlot<I, std::set<long>*()>(24, &I::getConstraintSet);
  expectSlot<I, int(Text, Text)>(25, &I::fetchOptionIndexByName);
}

TEST(SlotNumbersTest, IntermediateStaticFeatureGroup_EachOperation_HasItsSlot) {
  using I = IntermediateStaticFeatureGroup;
  expectSlot<I, int()>(15, &I::fetchNumberOfFeaturesInGroup);
  expectSlot<I, CoreFeature*(unsigned)>(16, &I::fetchFeatureInGroupByIndex);
}

TEST(SlotNumbersTest, CoreFeatureGroup_EachOperation_HasItsSlot) {
  using I = CoreFeatureGroup;
  expectSlot<I, bool(AttributeMap&)>(15, &I::addStaticGroupToDynamicGroup);
  expectSlot<I, int()>(16, &I::fetchNumberOfDynamicEntries);
  expectSlot<I, IntermediateStaticFeatureGroup*(unsigned)>(17, &I::getDynamicEntryByIndex);
  expectSlot<I, bool(unsigned)>(18, &I::removeDynamicEntryByIndex);
  expectSlot<I, bool()>(19, &I::removeAllDynamicEntries);
  expectSlot<I, bool(AttributeMap&)>(20, &I::detectDuplicateRecord);
}

TEST(SlotNumbersTest, IntermediateDynamicFeatureGroup_EachOperation_HasItsSlot) {
  using I = IntermediateDynamicFeatureGroup;
  expectSlot<I, bool(Text, Text, bool)>(21, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, int, bool)>(22, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, float, bool)>(23, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool(Text, bool, bool)>(24, &I::setFeaturePropertyWithConstraintControl);
  expectSlot<I, bool()>(25, &I::isConstraintSetEmpty);
  expectSlot<I, bool(const long&)>(26, &I::addConstraint);
  expectSlot<I, bool(const long&)>(27, &I::removeConstraint);
  expectSlot<I, std::set<long>*()>(28, &I::fetchSelectedEntries);
  expectSlot<I, bool(AttributeMap&, bool)>(29, &I::addStaticGroupToDynamicGroupWithSort);
  expectSlot<I, bool()>(30, &I::sortList);
}

TEST(SlotNumbersTest, CoreFeatureSet_EachOperation_HasItsSlot) {
  using I = CoreFeatureSet;
  using Serialize = void(std::string&, int, bool, const char*, const char*);
  expectSlot<I, void()>(0, &I::dumpFeatureListValues);
  expectSlot<I, int()>(1, &I::fetchNumberOfFeatures);
  expectSlot<I, DriverFeature*(int)>(2, &I::fetchFeatureByIndex);
  expectSlot<I, CoreFeature*(Text)>(3, &I::FindFeatureInFeatureList);
  expectSlot<I, CoreFeature*(Text, Text)>(4, &I::FindFeatureInFeatureList);
  expectSlot<I, DriverFeatureOption*(Text, Text, int)>(5, &I::CreateOptionForFeature);
  expectSlot<I, Serialize>(6, &I::serialize);
  expectSlot<I, void()>(7, &I::restoreDefaultFeatureValues);
}

// No interface can be deleted through, and none has a slot for it.
template <class Interface>
constexpr bool kCannotBeDeleted =
    std::is_polymorphic_v<Interface> && !std::has_virtual_destructor_v<Interface> &&
    !std::is_destructible_v<Interface>;
static_assert(kCannotBeDeleted<CoreOption>);
static_assert(kCannotBeDeleted<IntermediateCoreOption>);
static_assert(kCannotBeDeleted<CoreFeature>);
static_assert(kCannotBeDeleted<IntermediateCoreFeature>);
static_assert(kCannotBeDeleted<IntermediateStaticFeatureGroup>);
static_assert(kCannotBeDeleted<CoreFeatureGroup>);
static_assert(kCannotBeDeleted<IntermediateDynamicFeatureGroup>);
static_assert(kCannotBeDeleted<CoreFeatureSet>);

}  // namespace
}  // namespace driver_feature::testing

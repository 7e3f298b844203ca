// The sizes and offsets that a host compiled elsewhere has built in, for
// 32-bit x86 and for x86-64. Most of it is checked by the compiler.

#include <cstddef>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "model/core_feature.h"
#include "model/core_feature_group.h"
#include "model/core_feature_set.h"
#include "model/core_option.h"
#include "model/driver_feature.h"
#include "model/driver_feature_dynamic_group.h"
#include "model/driver_feature_option.h"
#include "model/driver_feature_static_group.h"

#include "AttributeMap.h"
#include "UnicodeString.h"
#include "VORNWriter.h"

namespace driver_feature::testing {
namespace {

// A size on 32-bit x86 and on x86-64.
constexpr std::size_t either(std::size_t on32, std::size_t on64) {
  return sizeof(void*) == 4 ? on32 : on64;
}

template <class Type>
constexpr bool isLaidOut(std::size_t size, std::size_t alignment) {
  return sizeof(Type) == size && alignof(Type) == alignment;
}

constexpr std::size_t kWord = either(4, 8);

static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);
static_assert(sizeof(bool) == 1 && sizeof(int) == 4 && sizeof(unsigned) == 4 && sizeof(float) == 4);
static_assert(isLaidOut<long>(kWord, kWord));

// The table pointer and two flags, filled up to whole words.
static_assert(isLaidOut<CoreOption>(either(8, 16), kWord));
static_assert(isLaidOut<IntermediateCoreOption>(either(8, 16), kWord));
static_assert(isLaidOut<CoreFeature>(either(8, 16), kWord));
static_assert(isLaidOut<IntermediateCoreFeature>(either(8, 16), kWord));
static_assert(isLaidOut<IntermediateStaticFeatureGroup>(either(8, 16), kWord));
static_assert(isLaidOut<CoreFeatureGroup>(either(8, 16), kWord));
static_assert(isLaidOut<IntermediateDynamicFeatureGroup>(either(8, 16), kWord));

// The table pointer alone.
static_assert(isLaidOut<CoreFeatureSet>(either(4, 8), kWord));

// The run-time system's types in signatures and results.
static_assert(isLaidOut<std::string>(either(24, 32), kWord));
static_assert(isLaidOut<std::set<long>>(either(24, 48), kWord));

// The platform's types, as the development editions declare them.
static_assert(isLaidOut<AttributeMap>(either(24, 48), kWord));
static_assert(isLaidOut<UnicodeString>(either(24, 32), kWord));
static_assert(isLaidOut<VORNWriter>(either(4, 8), kWord));

// Makes the flags visible.
class OptionFlags : public CoreOption {
 public:
  using CoreOption::sensitive_;
  using CoreOption::visible_;
};
class FeatureFlags : public CoreFeature {
 public:
  using CoreFeature::sensitive_;
  using CoreFeature::visible_;
};

// Both compilers know the offset in a class with virtual operations.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(offsetof(OptionFlags, sensitive_) == kWord);
static_assert(offsetof(OptionFlags, visible_) == kWord + 1);
static_assert(offsetof(FeatureFlags, sensitive_) == kWord);
static_assert(offsetof(FeatureFlags, visible_) == kWord + 1);
#pragma GCC diagnostic pop

// Hosts turn a pointer to one of these into a pointer to the other without
// knowing the classes, so that it has to be the same address.
template <class Derived, class Base>
bool sharesAddress() {
  alignas(Derived) static unsigned char memory[sizeof(Derived)];
  auto* derived = reinterpret_cast<Derived*>(memory);
  return static_cast<void*>(static_cast<Base*>(derived)) == static_cast<void*>(derived);
}

TEST(LayoutTest, Interfaces_OfEveryClass_StartWhereTheObjectStarts) {
  EXPECT_TRUE((sharesAddress<DriverFeatureOption, CoreOption>()));
  EXPECT_TRUE((sharesAddress<DriverFeature, CoreFeature>()));
  EXPECT_TRUE((sharesAddress<DriverFeature, IntermediateCoreFeature>()));
  EXPECT_TRUE((sharesAddress<DriverFeatureStaticGroup, CoreFeature>()));
  EXPECT_TRUE((sharesAddress<DriverFeatureDynamicGroup, CoreFeature>()));
  EXPECT_TRUE((sharesAddress<DriverFeatureDynamicGroup, CoreFeatureGroup>()));
}

}  // namespace
}  // namespace driver_feature::testing

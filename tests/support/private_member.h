// Lets a test damage an object: a way to a private member, for the tests of
// what the library does when it finds something missing that none of its own
// operations takes away.
//
//   struct Records {
//     using Type = std::vector<DriverFeatureStaticGroup*> DriverFeatureDynamicGroup::*;
//     friend Type openMember(Records);
//   };
//   template struct PrivateMember<Records, &DriverFeatureDynamicGroup::records_>;
//   ...
//   (group.*openMember(Records{})).push_back(nullptr);
//
// An explicit instantiation may name what is private. It and the tag are in
// the namespace of this header, and in none inside it.
#ifndef TESTS_SUPPORT_PRIVATE_MEMBER_H_
#define TESTS_SUPPORT_PRIVATE_MEMBER_H_

namespace driver_feature::testing {

template <class Tag, auto kMember>
struct PrivateMember {
  friend typename Tag::Type openMember(Tag) { return kMember; }
};

}  // namespace driver_feature::testing

#endif  // TESTS_SUPPORT_PRIVATE_MEMBER_H_

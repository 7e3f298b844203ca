// What a program takes from the feature description itself, because the
// library does not report it: the limits of the features (the library stores
// them without enforcing them, gives no way to read the integer ones, and
// returns 0 both for a limit of 0 and for none), their lines, and which names
// belong to groups.
#ifndef HOST_DESCRIPTION_DESCRIPTION_INDEX_H_
#define HOST_DESCRIPTION_DESCRIPTION_INDEX_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

class AttributeMap;

namespace driver_feature::host {

// The limits of one feature. A limit that the description does not give, or
// gives in a form that the library does not accept either, is absent. A maximum
// length of 0 or less and an empty set of characters mean no limit: they are
// what the library keeps for a feature without one.
struct FeatureLimits {
  int line = 0;  // Of the feature in the description; 0 when unknown.
  std::optional<int> intMin;
  std::optional<int> intMax;
  std::optional<float> floatMin;
  std::optional<float> floatMax;
  std::optional<int> maxTextLength;  // In characters.
  std::string allowedCharacters;
  std::string changeRoutine;  // Its name, which the library does not report either.
  std::string group;          // The name of the innermost group around it; empty at top level.
};

enum class GroupKind { kNone, kStatic, kDynamic };

// One group of the description.
struct GroupEntry {
  std::string name;
  GroupKind kind = GroupKind::kStatic;
  std::string outer;  // The name of the group around it; empty at top level.
  int line = 0;
};

class DescriptionIndex {
 public:
  // Walks a feature-description element, groups within groups included. When
  // a feature's name occurs twice, the last one counts, as in the library. The
  // element is not needed afterwards.
  explicit DescriptionIndex(void* description);

  // No limits for a name that is not a feature's.
  const FeatureLimits& limitsOf(const std::string& featureName) const;

  // The names of the groups around a feature, the innermost one first.
  std::vector<std::string> groupsAround(const std::string& featureName) const;

  // The dynamic group whose template holds a feature, at any depth: it is a member
  // of that group's records. Empty when there is none.
  std::string recordsOf(const std::string& featureName) const;

  // Which kind of group a name belongs to. A static group comes before a
  // dynamic one of the same name.
  GroupKind groupNamed(const std::string& name) const;

  // All groups in the order of their start tags.
  const std::vector<GroupEntry>& groups() const { return groups_; }

  // The name of the static group that is a dynamic group's template; empty
  // when the description has no dynamic group of that name.
  std::string templateOf(const std::string& dynamicGroup) const;

 private:
  void addChildren(void* element, const std::string& outer);
  void addFeature(void* element, const AttributeMap& attributes, const std::string& group);

  std::map<std::string, FeatureLimits> features_;
  std::vector<GroupEntry> groups_;
};

// "from 1 to 999", "at least 1", "at most 999", or empty without a limit.
std::string rangeText(const std::optional<int>& lowest, const std::optional<int>& highest);
std::string rangeText(const std::optional<float>& lowest, const std::optional<float>& highest);

// The shortest decimal text that reads back as this number.
std::string numberText(float number);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_DESCRIPTION_INDEX_H_

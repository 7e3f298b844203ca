// The names that stand in a feature description, read without the feature
// library: completing a line must not run routines of a description.
#ifndef HOST_COMPLETION_DESCRIPTION_NAMES_H_
#define HOST_COMPLETION_DESCRIPTION_NAMES_H_

#include <string>
#include <vector>

namespace driver_feature {

struct NamedFeature {
  std::string name;
  std::string type;  // "MultiSelect" and so on.
  std::vector<std::string> options;
};

struct DescriptionNames {
  std::vector<NamedFeature> features;
  std::vector<std::string> staticGroups;
  std::vector<std::string> dynamicGroups;
};

// All names in the order of the file; none when it cannot be read. Says
// nothing on any stream.
DescriptionNames readNames(const std::string& path);

}  // namespace driver_feature

#endif  // HOST_COMPLETION_DESCRIPTION_NAMES_H_

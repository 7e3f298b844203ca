// Choices that the description calls by another name than the PPD.
#ifndef HOST_PPD_PLAIN_FOREIGN_NAMES_H_
#define HOST_PPD_PLAIN_FOREIGN_NAMES_H_

#include <string>
#include <vector>

namespace driver_feature::ppd {

class ForeignNames {
 public:
  // The values of the PPD's attributes "DriverFeatureChoice".
  explicit ForeignNames(const std::vector<std::string>& values);

  // The PPD's name of a choice that the description calls so; else the name as
  // it is.
  std::string choiceNamed(const std::string& option, const std::string& name) const;

  // What the description calls a choice of the PPD.
  std::string nameOf(const std::string& option, const std::string& choice) const;

 private:
  struct ForeignName {
    std::string option;
    std::string choice;
    std::string name;  // The description's.
  };
  std::vector<ForeignName> names_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_FOREIGN_NAMES_H_

#include "host/ppd/plain/foreign_names.h"

#include <sstream>
#include <utility>

#include "host/ppd/plain/keywords.h"

namespace driver_feature::ppd {

ForeignNames::ForeignNames(const std::vector<std::string>& values) {
  for (const std::string& value : values) {
    std::istringstream words(value);
    ForeignName foreign;
    words >> foreign.option >> foreign.choice >> std::ws;
    std::getline(words, foreign.name);
    names_.push_back(std::move(foreign));
  }
}

std::string ForeignNames::choiceNamed(const std::string& option, const std::string& name) const {
  for (const ForeignName& foreign : names_) {
    if (equalKeywords(foreign.option, option) && equalKeywords(foreign.name, name)) {
      return foreign.choice;
    }
  }
  return name;
}

std::string ForeignNames::nameOf(const std::string& option, const std::string& choice) const {
  for (const ForeignName& foreign : names_) {
    if (foreign.option == option && foreign.choice == choice) return foreign.name;
  }
  return choice;
}

}  // namespace driver_feature::ppd

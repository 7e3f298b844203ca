// The PPDs whose output is known to differ, each with its reason.
#ifndef EQUIVALENCE_EXCEPTIONS_H_
#define EQUIVALENCE_EXCEPTIONS_H_

#include <istream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/base/result.h"

namespace driver_feature::equivalence {

class Exceptions {
 public:
  // Reads lines "CAUSE | PPD | REASON"; empty lines and those that begin with
  // "#" are ignored. Fails when a line is not of that form, has an empty part or
  // repeats an earlier one.
  static host::Result<Exceptions> read(std::istream& input);

  // The reason, or null when it is not listed. Marks the cause as one that has
  // occurred.
  const std::string* find(const std::string& cause, const std::string& ppd);

  // "CAUSE | PPD" of those that have not occurred, though their PPD is one of
  // `examined`; with `complete`, of all that have not occurred.
  std::vector<std::string> idle(const std::set<std::string>& examined, bool complete) const;

 private:
  struct Entry {
    std::string reason;
    bool hasOccurred = false;
  };

  std::map<std::pair<std::string, std::string>, Entry> entries_;  // By cause and PPD.
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_EXCEPTIONS_H_

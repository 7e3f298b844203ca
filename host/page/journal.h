// The settings that lead from the default values to the present ones.
//
// Where routines change values and availability, the changed features alone need not
// lead there: a text that can be set only while a watermark is chosen keeps its value
// when there is none. So what other programs get is tried on a description
// that has just been loaded, and longer ways are kept only where short ones fail.
#ifndef HOST_PAGE_JOURNAL_H_
#define HOST_PAGE_JOURNAL_H_

#include <functional>
#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::page {

class Journal {
 public:
  // How well settings lead to the present state.
  enum class Match : unsigned char { kNone, kOutputs, kAll };
  using Try = std::function<Match(const std::vector<host::Setting>& settings)>;

  // Forgets all settings.
  void clear() { settings_.clear(); }

  // Values have been set: `wishes` in this order, by a person, and with them `others`
  // have changed. `changed` are the features that differ from their default values,
  // with these. Without `tries`, every order leads there.
  void note(const std::vector<host::Setting>& wishes, const std::vector<host::Setting>& others,
            const std::vector<host::Setting>& changed, const Try& tries);

  const std::vector<host::Setting>& settings() const { return settings_; }

 private:
  std::vector<host::Setting> settings_;
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_JOURNAL_H_

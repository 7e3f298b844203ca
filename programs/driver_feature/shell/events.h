// Shows a driver author what an action makes the library do, while it does it:
// log lines, calls of the update callback, and what has changed by then.
#ifndef PROGRAMS_DRIVER_FEATURE_SHELL_EVENTS_H_
#define PROGRAMS_DRIVER_FEATURE_SHELL_EVENTS_H_

#include <functional>
#include <map>
#include <string>

#include "host/session/session.h"

namespace driver_feature::cli {

enum class EventKind { kChange, kNotification };

// What can change about the features, their options and the records, as texts
// by what they belong to: "Copies", "Duplex option LongEdge", "Pages records".
using ModelState = std::map<std::string, std::string>;
ModelState stateOf(const host::Model& model, CoreFeatureSet& set);

// A feature's current value as a word that can be typed again; "(none)" for a
// "MultiSelect" feature without a current option, "no value" for a feature
// that holds none.
std::string currentValueWord(const host::FeatureView& feature);

// While it lives, it is the library's update callback: it reports what
// has changed and the call, and then calls the description's own callback when
// there is one. A change routine is seen by the values that it changes. One at
// a time.
class EventWatch {
 public:
  using Report = std::function<void(EventKind kind, const std::string& text)>;

  EventWatch(host::Session& session, Report report);
  ~EventWatch();
  EventWatch(const EventWatch&) = delete;
  EventWatch& operator=(const EventWatch&) = delete;

  // Reports what has changed since the last look: once an action has ended, what
  // it has changed without a notification.
  void look();

 private:
  static bool onUpdate();

  host::Session& session_;
  Report report_;
  ModelState state_;
  bool (*ownCallback_)() = nullptr;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_SHELL_EVENTS_H_

// What the feature library does while a change is made: log lines, and calls of the
// update callback.
#ifndef HOST_PAGE_NOTICES_H_
#define HOST_PAGE_NOTICES_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/page/catalog.h"
#include "host/session/session.h"
#include "host/session/update_callback.h"

namespace driver_feature::page {

struct NoticedLine {
  int level = 0;  // 1 to 4.
  std::string text;
};

// While it lives, it is the library's update callback, which calls the description's
// own. One at a time.
class Notices {
 public:
  // Later lines and calls are counted and not kept.
  static constexpr std::size_t kMost = 500;

  Notices(host::Session& session, const Catalog& catalog);
  ~Notices();
  Notices(const Notices&) = delete;
  Notices& operator=(const Notices&) = delete;

  // Forgets what it has noticed; changes are counted from the present values.
  void begin();

  // To be called with each line of the log.
  void take(int level, std::string_view text);

  const std::vector<NoticedLine>& lines() const { return lines_; }
  std::size_t linesLeftOut() const { return linesLeftOut_; }

  // For each call, in their order, what has changed since the call before: the names
  // of features; an empty name for a call without a change.
  const std::vector<std::string>& notifications() const { return notifications_; }

 private:
  static bool onUpdate();
  void note();

  host::Session& session_;
  const Catalog& catalog_;
  host::UpdateCallback ownCallback_;
  std::vector<NoticedLine> lines_;
  std::size_t linesLeftOut_ = 0;
  std::vector<std::string> notifications_;
  std::vector<std::string> values_;  // By the place of the feature in the catalog.
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_NOTICES_H_

// A copy of the process in which nothing has been set: it shows the effect of
// settings on a description that has just been loaded.
#ifndef HOST_PAGE_PRISTINE_COPY_H_
#define HOST_PAGE_PRISTINE_COPY_H_

#include <functional>
#include <optional>
#include <string>

#include "host/base/child_process.h"
#include "host/base/result.h"

namespace driver_feature::page {

class PristineCopy {
 public:
  // What is tried in a copy of the copy: turns a text into a text. It must not
  // refer to anything that the asking process may have destroyed or changed
  // since.
  using Work = std::function<std::string(const std::string& question)>;

  // Makes the copy, which ends with this object or with the process. `socket` is
  // closed in it; -1 for none.
  static host::Result<PristineCopy> start(int socket, const Work& work);

  ~PristineCopy();
  PristineCopy(PristineCopy&& other) noexcept;
  PristineCopy& operator=(PristineCopy&&) = delete;
  PristineCopy(const PristineCopy&) = delete;
  PristineCopy& operator=(const PristineCopy&) = delete;

  // The result of the work for the text; nothing when it has ended its process.
  std::optional<std::string> ask(const std::string& question);

 private:
  PristineCopy(host::ChildProcess child, int socket) : child_(std::move(child)), socket_(socket) {}

  host::ChildProcess child_;
  int socket_;
  std::string arrived_;
};

}  // namespace driver_feature::page

#endif  // HOST_PAGE_PRISTINE_COPY_H_

// The page of a description at an address that cannot be guessed.
#ifndef PROGRAMS_PREVIEW_SITE_H_
#define PROGRAMS_PREVIEW_SITE_H_

#include <memory>
#include <string>

#include "host/page_server/page.h"
#include "host/server/server.h"
#include "programs/preview/arguments.h"

namespace driver_feature::preview {

class Site final {
 public:
  // The loop must outlive it.
  Site(host::EventLoop& loop, const Arguments& arguments);

  // Listens and loads the description. Problems: no random numbers; the port is
  // not free.
  host::Result<> start();

  const std::string& address() const { return address_; }
  const page_server::Page& page() const { return *page_; }

 private:
  page_server::Page::Answer handle(const host::Request& request);

  host::EventLoop& loop_;
  Arguments arguments_;
  std::string root_;  // The path of the page: "/TOKEN/".
  std::string address_;
  host::Server server_;
  std::unique_ptr<page_server::Page> page_;
};

}  // namespace driver_feature::preview

#endif  // PROGRAMS_PREVIEW_SITE_H_

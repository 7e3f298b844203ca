// The live pages of printers, one for each visitor.
#ifndef PROGRAMS_PRINTER_VISITS_H_
#define PROGRAMS_PRINTER_VISITS_H_

#include <map>
#include <memory>
#include <string>

#include "host/page/page_process.h"
#include "host/page_server/page.h"
#include "host/server/server.h"
#include "programs/printer/hardware.h"

namespace driver_feature::printer {

// Everybody who opens /page/PRINTER/ gets a page of their own, with a process of
// its own, at /page/PRINTER/VISIT/, so visitors do not see what others type. A
// page that is not used for some minutes ends.
class Visits final {
 public:
  // Loop and server must outlive it.
  Visits(host::EventLoop& loop, host::Server& server);
  ~Visits();
  Visits(const Visits&) = delete;
  Visits& operator=(const Visits&) = delete;

  // What is made of a request for /page/PRINTER/REST.
  page_server::Page::Answer handle(const host::Request& request, const std::string& printer,
                                   const std::string& rest, const Hardware& hardware,
                                   const page::PageRequest& process);

 private:
  struct Visit {
    std::string printer;
    std::unique_ptr<page_server::Page> page;
    host::EventLoop::Clock::time_point used;  // When its last request came.
  };

  page_server::Page::Answer begin(const host::Request& request, const std::string& printer,
                                  const Hardware& hardware, const page::PageRequest& process);
  bool makeRoom();
  void endOldOnes();

  host::EventLoop& loop_;
  host::Server& server_;
  std::map<std::string, Visit> visits_;  // By their names.
  host::EventLoop::Timer timer_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_VISITS_H_

// Announces printers by DNS-SD, through the machine's Avahi daemon, so that
// clients find them without their addresses.
#ifndef PROGRAMS_PRINTER_ANNOUNCEMENT_H_
#define PROGRAMS_PRINTER_ANNOUNCEMENT_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/base/child_process.h"
#include "host/server/event_loop.h"
#include "programs/printer/printer.h"

namespace driver_feature::printer {

struct AnnouncedPrinter {
  std::string name;
  std::vector<std::string> texts;  // Of its TXT record, such as "rp=ipp/print/office".

  bool operator==(const AnnouncedPrinter&) const = default;
};

struct Announcement {
  int port = 0;
  bool isClearOffered = true;
  bool isTlsOffered = false;
  std::vector<AnnouncedPrinter> printers;

  bool operator==(const Announcement&) const = default;
};

AnnouncedPrinter announcedPrinter(const Printer& printer, const std::string& uuid,
                                  bool isTlsOffered);

// Announces from a process of its own, which waits for D-Bus and Avahi.
class Announcer final {
 public:
  struct Notices {
    // The name by which clients will call this machine.
    std::function<void(const std::string& host)> host;
    // The name that a printer has in the network. It differs from the printer's own
    // where another printer had that first.
    std::function<void(const std::string& printer, const std::string& name)> announced;
  };

  // The loop must outlive this object.
  Announcer(host::EventLoop& loop, Notices notices);
  ~Announcer();
  Announcer(const Announcer&) = delete;
  Announcer& operator=(const Announcer&) = delete;

  // From now on, or soon: what is announced in place of what was.
  void announce(Announcement announcement);

 private:
  void start();
  void stop();
  void read();
  void take(const std::string& line);

  host::EventLoop& loop_;
  Notices notices_;
  Announcement announcement_;
  std::optional<host::ChildProcess> child_;
  std::string arrived_;
  std::optional<host::EventLoop::Timer> timer_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_ANNOUNCEMENT_H_

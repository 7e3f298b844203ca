// What runs in the process that announces printers.
#ifndef PROGRAMS_PRINTER_ANNOUNCEMENT_PROCESS_H_
#define PROGRAMS_PRINTER_ANNOUNCEMENT_PROCESS_H_

namespace driver_feature::printer {

struct Announcement;

// Announces the printers as long as the process runs. Writes lines to the pipe: the
// name of this machine in the network, and the names under which printers are announced,
// as PRINTER<tab>NAME. Without D-Bus or Avahi it waits for them, after a line for the log.
int runAnnouncement(const Announcement& announcement, int pipe);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_ANNOUNCEMENT_PROCESS_H_

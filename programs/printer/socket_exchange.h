// A job on its way to a printer in the network, and what the printer says meanwhile.
#ifndef PROGRAMS_PRINTER_SOCKET_EXCHANGE_H_
#define PROGRAMS_PRINTER_SOCKET_EXCHANGE_H_

namespace driver_feature::printer {

// Copies `input` to the connection, and waits for its end, for some time. Writes
// the printer's reports of its state as lines to standard error, when the job is
// in PJL and `asksForStatus` allows it; does not wait for a printer that sends
// none. False with errno set when the printer does not take the whole job.
bool sendJob(int input, int connection, bool asksForStatus);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_SOCKET_EXCHANGE_H_

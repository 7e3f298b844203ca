// The printers, their jobs and their clients.
#ifndef PROGRAMS_PRINTER_SERVICE_H_
#define PROGRAMS_PRINTER_SERVICE_H_

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/server/server.h"
#include "programs/printer/announcement.h"
#include "programs/printer/arguments.h"
#include "programs/printer/job_list.h"
#include "programs/printer/printer.h"
#include "programs/printer/visits.h"

namespace driver_feature::printer {

class Service final {
 public:
  Service(host::EventLoop& loop, ServiceArguments arguments);
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  // Opens the spool, loads the descriptions, listens, and prints what waits.
  // Problems: those of the spool and of the places to listen at.
  host::Result<> start();

  // Whether a description could be loaded, or none has failed yet.
  bool hasPrinters() const { return !printers_.empty(); }

  Printer* find(const std::string& name);
  const std::map<std::string, std::unique_ptr<Printer>>& printers() const { return printers_; }

  JobList& jobs() { return *jobs_; }

  // The number in a job's path, such as /ipp/job/12; 0 for other paths.
  static int jobOfPath(const std::string& path);

  // Prints the next job of the printer if it is idle.
  void startNext(Printer& printer);

  // Cancels a job that is not over, now or as soon as its process has ended.
  void cancel(Job& job, const std::string& message);

  // Keeps a changed job; a failure goes to the log.
  void keep(Job& job);

  // Prints a job that the spool has just taken, or lets it wait, and keeps it: clients
  // may hear of it after that only. While the disk works, printing begins. False when
  // it cannot be kept; the job is cancelled, then.
  bool accept(Printer& printer, Job& job);

  // Lets a job that waits for its document wait for some time only.
  void limitWait(int number);

  void replyLater(host::RequestNumber request, const host::Response& response) {
    server_.reply(request, response);
  }

  // A name that no other server uses, always the same for the same text.
  std::string uuidOf(const std::string& text) const;

  std::int64_t upTime() const { return now() - started_; }
  static std::int64_t now();
  const ServiceArguments& arguments() const { return arguments_; }

  // What clients can do: encrypted connections, and those that are not.
  bool isTlsOffered() const { return encryption_.credentials != nullptr; }
  bool isTlsRequired() const { return encryption_.isRequired; }

 private:
  std::variant<host::Response, std::unique_ptr<host::BodyTaker>> handle(
      const host::Request& request);
  std::variant<host::Response, std::unique_ptr<host::BodyTaker>> handleVisit(
      const host::Request& request);
  std::vector<std::string> namesOfMachine() const;
  host::Result<> startEncryption();
  std::filesystem::path hardwareFile(const std::string& printer) const;
  void announce();
  void takeAnnouncedName(const std::string& name, const std::string& announced);
  void addPrinter(const PrinterArgument& argument);
  void takeModel(Printer& printer, host::Result<LoadedModel> model);
  void leaveOut(const std::string& name);
  void takeLine(Printer& printer, const std::string& line);
  void endJob(Printer& printer, JobEnd end, const std::string& status);
  void settle(Job& job, JobEnd end, const std::string& status);

  host::EventLoop& loop_;
  ServiceArguments arguments_;
  host::Server server_;
  Visits visits_;
  host::Encryption encryption_;
  std::unique_ptr<Announcer> announcer_;  // Null: nothing is announced.
  std::unique_ptr<JobList> jobs_;
  std::map<std::string, std::unique_ptr<Printer>> printers_;
  std::int64_t started_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_SERVICE_H_

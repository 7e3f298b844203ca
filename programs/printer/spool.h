// The folder that keeps the jobs.
//
//   DIR/lock           held while a server uses the folder
//   DIR/jobs/12/       one job: job.json, attributes, document
//   DIR/incoming/      documents that are being received
//   DIR/identity       a random text
//   DIR/queues/        the PPDs that jobs are printed with
//   DIR/hardware/      what is built into each printer
//   DIR/tls/           the certificate of encrypted connections
//
// A job is accepted when job.json has its name: everything that belongs to the job
// is on the disk by then, and a client is notified only afterwards. A folder without
// it belongs to a job that no client was told about. Files change by a new one taking
// their name. So the jobs are whole whenever the server or the machine ends.
#ifndef PROGRAMS_PRINTER_SPOOL_H_
#define PROGRAMS_PRINTER_SPOOL_H_

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/result.h"
#include "programs/printer/job.h"

namespace driver_feature::printer {

// A document that is being received. It is gone again unless it becomes that of
// a job.
class IncomingDocument final {
 public:
  explicit IncomingDocument(std::filesystem::path path);
  ~IncomingDocument();
  IncomingDocument(const IncomingDocument&) = delete;
  IncomingDocument& operator=(const IncomingDocument&) = delete;

  // Problem: kNotWritten.
  host::Result<> write(std::string_view bytes);

  std::uint64_t size() const { return size_; }

  // The first bytes, by which a document's type can be recognised.
  const std::string& beginning() const { return beginning_; }

 private:
  friend class Spool;
  host::Result<> moveTo(const std::filesystem::path& target);

  std::filesystem::path path_;
  int descriptor_;
  std::uint64_t size_ = 0;
  std::string beginning_;
};

class Spool final {
 public:
  // Makes what is missing of the folder. Problem: kNotWritten, also when another
  // server uses the folder.
  static host::Result<std::unique_ptr<Spool>> open(const std::string& folder);
  ~Spool();
  Spool(const Spool&) = delete;
  Spool& operator=(const Spool&) = delete;

  // The jobs in the order of their numbers. What cannot be read becomes a problem
  // and keeps its place.
  std::vector<Job> load(host::Problems& problems);

  // A place for a document.
  host::Result<std::unique_ptr<IncomingDocument>> receive();

  // Takes a new job, to which it gives its number, with the attributes as they
  // are to be returned, and the document, which may be null. The job can be printed
  // then; it is kept from the next commit() on.
  host::Result<> add(Job& job, std::string_view attributes, IncomingDocument* document);

  // Adds the document to a job that waits for it, and takes the job's new state. It
  // is kept from the next commit() on.
  host::Result<> addDocument(const Job& job, IncomingDocument& incoming);

  // Brings to the disk what was taken of the job.
  host::Result<> commit(const Job& job);

  // Keeps the job's new state. One that is over loses its document.
  host::Result<> update(const Job& job);

  void remove(int number);

  std::string attributes(int number) const;  // Empty when they cannot be read.
  std::filesystem::path document(int number) const;
  std::filesystem::path queueFile(const std::string& printer) const;

  const std::filesystem::path& folder() const { return folder_; }

  // A random text that stays the same as long as the folder does.
  const std::string& identity() const { return identity_; }

  // Bytes of the documents that are kept.
  std::uint64_t used() const { return used_; }

 private:
  Spool(std::filesystem::path folder, int lock);
  std::filesystem::path jobFolder(int number) const;
  void dropDocument(int number);
  host::Result<> identify();
  std::optional<Job> loadJob(int number, host::Problems& problems);

  std::filesystem::path folder_;
  int lock_;
  std::string identity_;
  int lastNumber_ = 0;
  std::uint64_t lastIncoming_ = 0;
  std::uint64_t used_ = 0;
  // What commit() has to bring to the disk, before and after the record has its name.
  std::vector<std::filesystem::path> files_;
  std::vector<std::filesystem::path> folders_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_SPOOL_H_

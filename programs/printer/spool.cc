#include "programs/printer/spool.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

#include "host/base/descriptor.h"
#include "host/base/input_file.h"
#include "programs/printer/durable_file.h"
#include "programs/printer/job_record.h"

namespace driver_feature::printer {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFirstBytes = 64;
constexpr std::size_t kIdentity = 16;
constexpr const char* kRecord = "job.json";
constexpr const char* kAttributes = "attributes";
constexpr const char* kDocument = "document";

int numberOf(const std::string& name) {
  int number = 0;
  const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
  return read.ec == std::errc() && read.ptr == name.data() + name.size() ? number : 0;
}

std::uint64_t sizeOf(const fs::path& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

// Of a server that was killed, a process that was just made may hold the lock for a
// moment longer.
bool isLocked(int lock) {
  constexpr int kMostLockTries = 20;
  constexpr std::chrono::milliseconds kLockPause(25);
  for (int tries = 1; ::flock(lock, LOCK_EX | LOCK_NB) != 0; ++tries) {
    if (tries == kMostLockTries) return false;
    std::this_thread::sleep_for(kLockPause);
  }
  return true;
}

}  // namespace

IncomingDocument::IncomingDocument(fs::path path)
    : path_(std::move(path)),
      descriptor_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)) {}

IncomingDocument::~IncomingDocument() {
  if (descriptor_ != -1) ::close(descriptor_);
  if (!path_.empty()) ::unlink(path_.c_str());
}

host::Result<> IncomingDocument::write(std::string_view bytes) {
  if (beginning_.size() < kFirstBytes) {
    beginning_ += bytes.substr(0, kFirstBytes - beginning_.size());
  }
  size_ += bytes.size();
  if (!host::writeAll(descriptor_, bytes)) return notWritten(path_, errno);
  return {};
}

// Gives it its final name.
host::Result<> IncomingDocument::moveTo(const fs::path& target) {
  if (auto done = giveName(path_, target); !done) return done;
  path_.clear();
  return {};
}

host::Result<std::unique_ptr<Spool>> Spool::open(const std::string& folder) {
  const fs::path path = fs::absolute(folder);
  std::error_code error;
  for (const char* name : {"jobs", "queues", "incoming"}) {
    fs::create_directories(path / name, error);
    if (error) return notWritten(path / name, error.value());
    fs::permissions(path / name, fs::perms::owner_all, error);
  }
  const fs::path lockFile = path / "lock";
  const int lock = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (lock == -1) return notWritten(lockFile, errno);
  if (!isLocked(lock)) {
    ::close(lock);
    return host::fail(host::Problem::Kind::kNotWritten,
                      "the spool " + path.string() +
                          " is used by another server; give this one a folder of its own with "
                          "--spool");
  }
  // What was received when the server ended was never accepted.
  for (const fs::directory_entry& entry : fs::directory_iterator(path / "incoming", error)) {
    std::error_code ignored;
    fs::remove_all(entry.path(), ignored);
  }
  std::unique_ptr<Spool> spool(new Spool(path, lock));
  if (auto identified = spool->identify(); !identified) return failureOf(identified);
  return spool;
}

host::Result<> Spool::identify() {
  const fs::path file = folder_ / "identity";
  identity_ = host::readFile(file.string()).value_or("");
  if (identity_.size() >= kIdentity) return {};
  std::string bytes(kIdentity, '\0');
  if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    return notWritten(file, errno);
  }
  identity_ = bytes;
  return writeDurably(file, identity_);
}

Spool::Spool(fs::path folder, int lock) : folder_(std::move(folder)), lock_(lock) {}

Spool::~Spool() {
  ::close(lock_);
}

fs::path Spool::jobFolder(int number) const {
  return folder_ / "jobs" / std::to_string(number);
}

std::vector<Job> Spool::load(host::Problems& problems) {
  std::vector<Job> jobs;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder_ / "jobs", error)) {
    const int number = numberOf(entry.path().filename().string());
    if (number == 0) continue;
    lastNumber_ = std::max(lastNumber_, number);
    if (auto job = loadJob(number, problems)) jobs.push_back(std::move(*job));
  }
  std::sort(jobs.begin(), jobs.end(),
            [](const Job& a, const Job& b) { return a.number < b.number; });
  return jobs;
}

std::optional<Job> Spool::loadJob(int number, host::Problems& problems) {
  const fs::path record = jobFolder(number) / kRecord;
  std::error_code ignored;
  if (!fs::exists(record, ignored)) {
    // It was never accepted.
    fs::remove_all(jobFolder(number), ignored);
    return std::nullopt;
  }
  const auto text = host::readFile(record.string());
  if (!text) {
    problems.push_back(text.error());
    return std::nullopt;
  }
  auto job = jobOfRecord(*text);
  if (!job || job->number != number) {
    problems.push_back({host::Problem::Kind::kMalformed, "is not the record of a job", ""});
    problems.back().file = record.string();
    return std::nullopt;
  }
  if (job->isOver()) dropDocument(number);
  used_ += sizeOf(document(number));
  return std::move(*job);
}

host::Result<std::unique_ptr<IncomingDocument>> Spool::receive() {
  const fs::path path = folder_ / "incoming" / ("document-" + std::to_string(++lastIncoming_));
  auto document = std::make_unique<IncomingDocument>(path);
  if (document->descriptor_ == -1) return notWritten(path, errno);
  return document;
}

host::Result<> Spool::add(Job& job, std::string_view attributes, IncomingDocument* document) {
  job.number = ++lastNumber_;
  const fs::path folder = jobFolder(job.number);
  if (::mkdir(folder.c_str(), 0700) != 0) return notWritten(folder, errno);
  const auto take = [&]() -> host::Result<> {
    if (auto done = writeFile(folder / kAttributes, attributes); !done) return done;
    if (auto done = writeFile(newOf(folder / kRecord), recordOf(job)); !done) return done;
    return document == nullptr ? host::Result<>() : document->moveTo(folder / kDocument);
  };
  if (auto taken = take(); !taken) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return taken;
  }
  if (document != nullptr) used_ += document->size();
  files_ = {folder / kAttributes, newOf(folder / kRecord)};
  if (document != nullptr) files_.push_back(folder / kDocument);
  folders_ = {folder, folder_ / "jobs"};
  return {};
}

host::Result<> Spool::addDocument(const Job& job, IncomingDocument& incoming) {
  const fs::path record = newOf(jobFolder(job.number) / kRecord);
  if (auto done = writeFile(record, recordOf(job)); !done) return done;
  if (auto done = incoming.moveTo(document(job.number)); !done) return done;
  used_ += incoming.size();
  files_ = {record, document(job.number)};
  folders_ = {jobFolder(job.number)};
  return {};
}

host::Result<> Spool::commit(const Job& job) {
  for (const fs::path& file : files_) {
    if (auto done = flush(file); !done) return done;
  }
  const fs::path record = jobFolder(job.number) / kRecord;
  if (auto done = giveName(newOf(record), record); !done) return done;
  for (const fs::path& folder : folders_) {
    if (auto done = flush(folder); !done) return done;
  }
  return {};
}

host::Result<> Spool::update(const Job& job) {
  const fs::path folder = jobFolder(job.number);
  if (auto done = writeDurably(folder / kRecord, recordOf(job)); !done) return done;
  if (auto done = flush(folder); !done) return done;
  if (job.isOver()) dropDocument(job.number);
  return {};
}

void Spool::dropDocument(int number) {
  const fs::path file = document(number);
  const std::uint64_t size = sizeOf(file);
  if (::unlink(file.c_str()) == 0) used_ -= std::min(used_, size);
}

void Spool::remove(int number) {
  dropDocument(number);
  std::error_code ignored;
  fs::remove_all(jobFolder(number), ignored);
}

std::string Spool::attributes(int number) const {
  return host::readFile((jobFolder(number) / kAttributes).string()).value_or("");
}

fs::path Spool::document(int number) const {
  return jobFolder(number) / kDocument;
}

fs::path Spool::queueFile(const std::string& printer) const {
  return folder_ / "queues" / (printer + ".ppd");
}

}  // namespace driver_feature::printer

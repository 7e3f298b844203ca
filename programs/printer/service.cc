#include "programs/printer/service.h"

#include <cups/cups.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <utility>

#include "host/base/output_file.h"
#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/printer/certificate.h"
#include "programs/printer/ipp_taker.h"
#include "programs/printer/page.h"
#include "programs/printer/printer_attributes.h"

namespace driver_feature::printer {

namespace {

constexpr std::string_view kJobPath = "/ipp/job/";
constexpr std::string_view kVisitPath = "/page/";

void log(const std::string& text) {
  cli::printError(text);
}

}  // namespace

Service::Service(host::EventLoop& loop, ServiceArguments arguments)
    : loop_(loop),
      arguments_(std::move(arguments)),
      server_(loop, arguments_.limits,
              [this](const host::Request& request) { return handle(request); }),
      visits_(loop, server_),
      started_(now()) {}

Service::~Service() = default;

std::int64_t Service::now() {
  return std::time(nullptr);
}

std::string Service::uuidOf(const std::string& text) const {
  const std::string whole = jobs_->spool().identity() + text;
  std::array<unsigned char, 32> hash{};
  ::cupsHashData("sha2-256", whole.data(), whole.size(), hash.data(), hash.size());
  // Version 8 is the one for forms of one's own.
  hash[6] = static_cast<unsigned char>((hash[6] & 0x0f) | 0x80);
  hash[8] = static_cast<unsigned char>((hash[8] & 0x3f) | 0x80);
  std::array<char, 33> digits{};
  ::cupsHashString(hash.data(), 16, digits.data(), digits.size());
  const std::string hex = digits.data();
  return "urn:uuid:" + hex.substr(0, 8) + "-" + hex.substr(8, 4) + "-" + hex.substr(12, 4) + "-" +
         hex.substr(16, 4) + "-" + hex.substr(20);
}

host::Result<> Service::start() {
  auto spool = Spool::open(arguments_.spool);
  if (!spool) return failureOf(spool);
  jobs_ = std::make_unique<JobList>(std::move(*spool), arguments_.jobLimits);
  for (const host::Problem& problem : jobs_->load(now())) cli::printProblem(problem);
  for (const std::string& name : namesOfMachine()) server_.addName(name);
  for (const std::string& place : arguments_.places) {
    if (auto listening = server_.listen(place); !listening) return listening;
  }
  if (auto started = startEncryption(); !started) return started;
  for (const std::string& place : server_.places()) log("listening at " + place);
  if (arguments_.isAnnounced && !server_.isLoopbackOnly()) {
    announcer_ = std::make_unique<Announcer>(
        loop_, Announcer::Notices{[this](const std::string& name) { server_.addName(name); },
                                  [this](const std::string& name, const std::string& announced) {
                                    takeAnnouncedName(name, announced);
                                  }});
  }
  for (const PrinterArgument& argument : arguments_.printers) addPrinter(argument);
  return {};
}

// The names by which clients call it; the first one is its own.
std::vector<std::string> Service::namesOfMachine() const {
  std::vector<std::string> names;
  std::array<char, 256> host{};
  if (::gethostname(host.data(), host.size() - 1) == 0 && host[0] != '\0') {
    names = {host.data(), std::string(host.data()) + ".local"};
  }
  names.insert(names.end(), arguments_.hosts.begin(), arguments_.hosts.end());
  return names;
}

// Unless encryption is requested, a certificate that cannot be created is not fatal.
host::Result<> Service::startEncryption() {
  if (arguments_.tls == TlsUse::kNever) return {};
  const bool isOrdered = arguments_.tls != TlsUse::kAsReachable;
  if (!isOrdered && server_.isLoopbackOnly()) return {};
  CertificateFiles files{arguments_.certificate, arguments_.key};
  if (files.key.empty()) {
    std::vector<std::string> names = namesOfMachine();
    if (names.empty()) names = {"localhost"};
    auto made =
        ownCertificate(jobs_->spool().folder() / "tls", names, static_cast<std::time_t>(now()));
    if (!made && isOrdered) return failureOf(made);
    if (!made) cli::printProblem(made.error());
    if (!made) return {};
    files = std::move(*made);
  }
  auto loaded = host::TlsCredentials::load(files.certificate, files.key);
  if (!loaded) return failureOf(loaded);
  encryption_ = {std::move(*loaded), arguments_.tls == TlsUse::kRequired};
  server_.encrypt(encryption_);
  log("encrypting with the certificate " + files.certificate);
  return {};
}

Printer* Service::find(const std::string& name) {
  const auto found = printers_.find(name);
  return found == printers_.end() ? nullptr : found->second.get();
}

int Service::jobOfPath(const std::string& path) {
  const std::size_t place = path.find(kJobPath);
  if (place == std::string::npos) return 0;
  const std::string_view text = std::string_view(path).substr(place + kJobPath.size());
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() ? number : 0;
}

std::filesystem::path Service::hardwareFile(const std::string& printer) const {
  return jobs_->spool().folder() / "hardware" / printer;
}

void Service::addPrinter(const PrinterArgument& argument) {
  auto made = std::make_unique<Printer>();
  Printer& printer = *made;
  printer.name = argument.name;
  printer.networkName = argument.name;
  printer.description = argument.description;
  printer.queueFile = jobs_->spool().queueFile(argument.name);
  printer.hardware = {readHardware(hardwareFile(argument.name)), argument.hardware};
  printer.stateChanged = now();
  printers_.emplace(argument.name, std::move(made));
  ppd::QueueRequest request;
  request.description = argument.description;
  request.library = arguments_.library;
  request.routines = arguments_.routines;
  printer.worker = std::make_unique<ModelWorker>(
      loop_, argument.name, std::move(request), printer.hardware,
      [this, &printer](host::Result<LoadedModel> model) { takeModel(printer, std::move(model)); });
}

void Service::takeModel(Printer& printer, host::Result<LoadedModel> model) {
  if (!model) {
    log(printer.name + ": " + describe(model.error()));
    if (!printer.isReady()) leaveOut(printer.name);
    return;
  }
  // After a new start the printer is what it was; jobs may refer to it.
  if (printer.isReady()) return;
  if (const auto written = host::writeToFile(printer.queueFile, model->queue); !written) {
    cli::printProblem(written.error());
    return leaveOut(printer.name);
  }
  if (!printer.hardware.given.empty()) {
    const auto kept = writeHardware(hardwareFile(printer.name), printer.hardware);
    if (!kept) cli::printProblem(kept.error());
  }
  printer.translation.emplace(std::move(model->capabilities));
  printer.configured = now();
  printer.attributes = fixedAttributes(*this, printer);
  for (std::string& name : printer.translation->jobAttributeNames()) {
    printer.jobAttributes.insert(std::move(name));
  }
  log(printer.name + ": ready");
  announce();
  startNext(printer);
}

// Not at once: the worker that has reported the failure belongs to the printer.
void Service::leaveOut(const std::string& name) {
  loop_.after(host::EventLoop::Milliseconds(0), [this, name] {
    log(name + ": is left out");
    printers_.erase(name);
    announce();
    if (printers_.empty()) loop_.stop();
  });
}

void Service::announce() {
  if (!announcer_) return;
  Announcement announcement{server_.reachablePort(), !isTlsRequired(), isTlsOffered(), {}};
  for (const auto& [name, printer] : printers_) {
    if (!printer->isReady()) continue;
    announcement.printers.push_back(announcedPrinter(*printer, uuidOf(name), isTlsOffered()));
  }
  announcer_->announce(std::move(announcement));
}

void Service::takeAnnouncedName(const std::string& name, const std::string& announced) {
  Printer* printer = find(name);
  if (printer == nullptr || printer->networkName == announced) return;
  printer->networkName = announced;
  printer->configured = now();
}

std::variant<host::Response, std::unique_ptr<host::BodyTaker>> Service::handle(
    const host::Request& request) {
  if (request.path.starts_with(kVisitPath)) return handleVisit(request);
  if (request.method != host::Method::kPost) return pageFor(*this, request);
  if (!request.path.starts_with("/ipp/")) return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  if (request.contentType != "application/ipp") {
    return host::plainResponse(HTTP_STATUS_BAD_REQUEST);
  }
  return std::make_unique<IppTaker>(*this, request);
}

// /page/PRINTER/REST
std::variant<host::Response, std::unique_ptr<host::BodyTaker>> Service::handleVisit(
    const host::Request& request) {
  const std::string place = request.path.substr(kVisitPath.size());
  const std::size_t slash = place.find('/');
  Printer* printer = find(place.substr(0, slash));
  if (slash == std::string::npos || printer == nullptr) {
    return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  }
  page::PageRequest process;
  process.description = printer->description;
  process.library = arguments_.library;
  process.routines = arguments_.routines;
  return visits_.handle(request, printer->name, place.substr(slash + 1), printer->hardware,
                        process);
}

}  // namespace driver_feature::printer

#include "programs/printer/announcement.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/printer/announcement_process.h"
#include "host/base/child_setting.h"

namespace driver_feature::printer {

namespace {

using Milliseconds = host::EventLoop::Milliseconds;

// Printers become ready one after the other, and Avahi takes some time to forget what
// the process before has announced.
constexpr Milliseconds kRestartPause{1000};
constexpr Milliseconds kLongPause{60000};  // After a process that has ended.
constexpr std::size_t kLongestText = 255;  // In a TXT record.

std::vector<std::string> wordsOf(const Printer& printer, const char* name) {
  std::vector<std::string> words;
  ipp_attribute_t* attribute = ::ippFindAttribute(printer.attributes.get(), name, IPP_TAG_ZERO);
  for (int i = 0; attribute != nullptr && i < ::ippGetCount(attribute); ++i) {
    const char* word = ::ippGetString(attribute, i, nullptr);
    if (word != nullptr) words.emplace_back(word);
  }
  return words;
}

bool isTrue(const Printer& printer, const char* name) {
  ipp_attribute_t* attribute = ::ippFindAttribute(printer.attributes.get(), name, IPP_TAG_BOOLEAN);
  return attribute != nullptr && ::ippGetBoolean(attribute, 0) != 0;
}

}  // namespace

AnnouncedPrinter announcedPrinter(const Printer& printer, const std::string& uuid,
                                  bool isTlsOffered) {
  const std::string model = host::join(wordsOf(printer, "printer-make-and-model"), "");
  std::vector<std::string> formats = wordsOf(printer, "document-format-supported");
  std::erase(formats, "application/octet-stream");
  const bool isTwoSided = wordsOf(printer, "sides-supported").size() > 1;
  AnnouncedPrinter announced{
      printer.name,
      {"txtvers=1", "qtotal=1", "rp=ipp/print/" + printer.name, "ty=" + model,
       "product=(" + model + ")", "note=", "priority=50", "kind=document",
       "pdl=" + host::join(formats, ","),
       "URF=" + host::join(wordsOf(printer, "urf-supported"), ","),
       "UUID=" + uuid.substr(uuid.rfind(':') + 1),
       std::string("Color=") + (isTrue(printer, "color-supported") ? "T" : "F"),
       std::string("Duplex=") + (isTwoSided ? "T" : "F")}};
  if (isTlsOffered) announced.texts.emplace_back("TLS=1.3");
  for (std::string& text : announced.texts) text.resize(std::min(text.size(), kLongestText));
  return announced;
}

Announcer::Announcer(host::EventLoop& loop, Notices notices)
    : loop_(loop), notices_(std::move(notices)) {}

Announcer::~Announcer() {
  stop();
}

void Announcer::announce(Announcement announcement) {
  if (announcement == announcement_) return;
  announcement_ = std::move(announcement);
  stop();
  if (announcement_.printers.empty()) return;
  timer_ = loop_.after(kRestartPause, [this] { start(); });
}

void Announcer::start() {
  timer_.reset();
  auto child = host::ChildProcess::start(host::ChildStreams::kShared, [this](int pipe) {
    return runAnnouncement(announcement_, host::leaveServer(pipe));
  });
  if (!child) return cli::printProblem(child.error());
  child_.emplace(std::move(*child));
  loop_.watch(child_->pipe(), POLLIN, [this](short) { read(); });
}

void Announcer::stop() {
  if (timer_) loop_.cancel(*timer_);
  timer_.reset();
  if (child_) loop_.forget(child_->pipe());
  child_.reset();
  arrived_.clear();
}

void Announcer::read() {
  std::array<char, 1024> buffer;
  const ssize_t count = ::read(child_->pipe(), buffer.data(), buffer.size());
  if (count <= 0) {
    stop();
    timer_ = loop_.after(kLongPause, [this] { start(); });
    return;
  }
  arrived_.append(buffer.data(), static_cast<std::size_t>(count));
  for (std::size_t end = 0; (end = arrived_.find('\n')) != std::string::npos;) {
    take(arrived_.substr(0, end));
    arrived_.erase(0, end + 1);
  }
}

// "HOST", or "PRINTER<tab>NAME".
void Announcer::take(const std::string& line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string::npos) return notices_.host(line);
  notices_.announced(line.substr(0, tab), line.substr(tab + 1));
}

}  // namespace driver_feature::printer

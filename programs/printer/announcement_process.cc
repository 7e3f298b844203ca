#include "programs/printer/announcement_process.h"

#include <avahi-client/client.h>
#include <avahi-client/publish.h>
#include <avahi-common/alternative.h>
#include <avahi-common/error.h>
#include <avahi-common/malloc.h>
#include <avahi-common/simple-watch.h>
#include <avahi-common/strlst.h>
#include <unistd.h>

#include <deque>
#include <string>

#include "host/base/descriptor.h"
#include "programs/common/console.h"
#include "programs/printer/announcement.h"

namespace driver_feature::printer {

namespace {

constexpr unsigned kSearchPause = 30;      // Seconds before D-Bus is looked for again,
constexpr unsigned kShortSearchPause = 1;  // and Avahi when it has just ended.
constexpr const char* kEverywhere = "_print._sub.";
constexpr const char* kUniversal = "_universal._sub.";

class Publisher;

// One printer: its name may change when another machine has it.
struct Entry {
  Publisher* publisher = nullptr;
  const AnnouncedPrinter* printer = nullptr;
  std::string name;
  AvahiEntryGroup* group = nullptr;
};

class Publisher {
 public:
  Publisher(const Announcement& announcement, int pipe) : announcement_(announcement), pipe_(pipe) {
    for (const AnnouncedPrinter& printer : announcement.printers) {
      entries_.push_back({this, &printer, printer.name, nullptr});
    }
  }

  // Returns when there is no D-Bus or Avahi ends, with the seconds after which to try
  // again. The reason goes to the log once.
  unsigned run() {
    wasRunning_ = false;
    poll_ = ::avahi_simple_poll_new();
    if (poll_ == nullptr) return kSearchPause;
    int error = 0;
    // Waits for a daemon that starts later.
    AvahiClient* client = ::avahi_client_new(::avahi_simple_poll_get(poll_), AVAHI_CLIENT_NO_FAIL,
                                             &Publisher::takeState, this, &error);
    if (client != nullptr) {
      ::avahi_simple_poll_loop(poll_);
      error = ::avahi_client_errno(client);
      ::avahi_client_free(client);
    }
    ::avahi_simple_poll_free(poll_);
    for (Entry& entry : entries_) entry.group = nullptr;
    if (!isReported_) log(std::string("printers are not announced: ") + ::avahi_strerror(error));
    isReported_ = true;
    return wasRunning_ ? kShortSearchPause : kSearchPause;
  }

 private:
  static void log(const std::string& text) { cli::printError(text); }

  static void takeState(AvahiClient* client, AvahiClientState state, void* data) {
    Publisher& self = *static_cast<Publisher*>(data);
    if (state == AVAHI_CLIENT_S_RUNNING) {
      self.isReported_ = false;
      self.wasRunning_ = true;
      const char* host = ::avahi_client_get_host_name_fqdn(client);
      if (host != nullptr) host::writeAll(self.pipe_, std::string(host) + "\n");
      for (Entry& entry : self.entries_) self.add(client, entry);
    } else if (state == AVAHI_CLIENT_S_COLLISION || state == AVAHI_CLIENT_S_REGISTERING) {
      // The machine gets another name; its services come after that.
      for (Entry& entry : self.entries_) {
        if (entry.group != nullptr) ::avahi_entry_group_reset(entry.group);
      }
    } else if (state == AVAHI_CLIENT_CONNECTING) {
      log("printers are announced as soon as Avahi runs");
    } else if (state == AVAHI_CLIENT_FAILURE) {
      ::avahi_simple_poll_quit(self.poll_);
    }
  }

  static void takeGroupState(AvahiEntryGroup* group, AvahiEntryGroupState state, void* data) {
    Entry& entry = *static_cast<Entry*>(data);
    if (state == AVAHI_ENTRY_GROUP_ESTABLISHED) {
      log(entry.printer->name + ": is announced as " + entry.name);
      host::writeAll(entry.publisher->pipe_, entry.printer->name + "\t" + entry.name + "\n");
    }
    if (state != AVAHI_ENTRY_GROUP_COLLISION) return;
    rename(entry);
    entry.group = group;
    entry.publisher->add(::avahi_entry_group_get_client(group), entry);
  }

  static void rename(Entry& entry) {
    char* other = ::avahi_alternative_service_name(entry.name.c_str());
    entry.name = other;
    ::avahi_free(other);
  }

  void add(AvahiClient* client, Entry& entry) {
    if (entry.group == nullptr) {
      entry.group = ::avahi_entry_group_new(client, &Publisher::takeGroupState, &entry);
    }
    if (entry.group == nullptr) return;
    AvahiStringList* texts = textsOf(entry, ::avahi_client_get_host_name_fqdn(client));
    // One that has the name on this machine already is found at once.
    constexpr int kMostNames = 10;
    int result = AVAHI_ERR_COLLISION;
    for (int tries = 0; result == AVAHI_ERR_COLLISION && tries < kMostNames; ++tries) {
      if (tries > 0) rename(entry);
      ::avahi_entry_group_reset(entry.group);
      result = addServices(entry, texts);
    }
    ::avahi_string_list_free(texts);
    if (result >= 0) result = ::avahi_entry_group_commit(entry.group);
    if (result < 0) log(entry.printer->name + ": is not announced: " + ::avahi_strerror(result));
  }

  AvahiStringList* textsOf(const Entry& entry, const char* host) const {
    AvahiStringList* texts = nullptr;
    for (const std::string& text : entry.printer->texts) {
      texts = ::avahi_string_list_add(texts, text.c_str());
    }
    const std::string page = std::string("adminurl=") +
                             (announcement_.isClearOffered ? "http://" : "https://") +
                             (host != nullptr ? host : "localhost") + ":" +
                             std::to_string(announcement_.port) + "/" + entry.printer->name;
    texts = ::avahi_string_list_add(texts, page.c_str());
    // Each one was added at the front.
    return ::avahi_string_list_reverse(texts);
  }

  int addServices(const Entry& entry, AvahiStringList* texts) const {
    // The oldest type keeps the name for one printer among those of all protocols; at
    // port 0 it is not one that can be used.
    int result = addService(entry, "_printer._tcp", 0, nullptr);
    if (announcement_.isClearOffered && result >= 0) result = addIpp(entry, "_ipp._tcp", texts);
    if (announcement_.isTlsOffered && result >= 0) result = addIpp(entry, "_ipps._tcp", texts);
    return result;
  }

  int addIpp(const Entry& entry, const std::string& type, AvahiStringList* texts) const {
    int result = addService(entry, type, announcement_.port, texts);
    for (const char* subtype : {kEverywhere, kUniversal}) {
      if (result < 0) return result;
      result = ::avahi_entry_group_add_service_subtype(
          entry.group, AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC, static_cast<AvahiPublishFlags>(0),
          entry.name.c_str(), type.c_str(), nullptr, (subtype + type).c_str());
    }
    return result;
  }

  static int addService(const Entry& entry, const std::string& type, int port,
                        AvahiStringList* texts) {
    return ::avahi_entry_group_add_service_strlst(entry.group, AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
                                                  static_cast<AvahiPublishFlags>(0),
                                                  entry.name.c_str(), type.c_str(), nullptr,
                                                  nullptr, static_cast<std::uint16_t>(port), texts);
  }

  const Announcement& announcement_;
  int pipe_;
  std::deque<Entry> entries_;
  AvahiSimplePoll* poll_ = nullptr;
  bool isReported_ = false;
  bool wasRunning_ = false;
};

}  // namespace

int runAnnouncement(const Announcement& announcement, int pipe) {
  Publisher publisher(announcement, pipe);
  for (;;) ::sleep(publisher.run());
}

}  // namespace driver_feature::printer

// Whether clients find the same conflicts in what a printer advertises as the rules of
// its description have: pairs of values are judged by libcups (cupsCopyDestConflicts),
// which asks the running printer, and by the description's rules.
//
//   ipp_conflicts --library PLUGIN [--routines LIBRARY]... [--seed N] --pairs N NAME=URI...
//
// NAME is a description, URI its printer. A line for each pair that is judged
// differently, and the sums at the end; the exit status is 0 without one and with conflicts.
#include <cups/cups.h>

#include <array>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "host/base/child_process.h"
#include "host/ipp/translation.h"
#include "host/session/session.h"
#include "host/settings/rule_keeping.h"
#include "host/settings/setting.h"

namespace {

using driver_feature::host::Session;
using driver_feature::host::Setting;
using driver_feature::ipp::Translation;

struct Request {
  std::string library;
  std::vector<std::string> routines;
  unsigned seed = 1;
  int pairs = 100;
};

// A value as print options write it.
struct Word {
  std::string attribute;
  std::string value;
  ipp_tag_t type = IPP_TAG_KEYWORD;
};

struct Sums {
  long pairs = 0;
  long conflicts = 0;
  long faults = 0;
};

struct IppDeleter {
  void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

std::vector<Word> wordsOf(const Translation& translation) {
  const Ipp printer(ippNew());
  translation.addPrinterAttributes(printer.get());
  std::vector<Word> words;
  std::vector<std::string> names = translation.jobAttributeNames();
  names.insert(names.end(), {"media-source", "media-type"});
  for (const std::string& name : names) {
    if (name == "media-col" || name == "finishings-col" || name == "job-hold-until") continue;
    ipp_attribute_t* values =
        ippFindAttribute(printer.get(), (name + "-supported").c_str(), IPP_TAG_ZERO);
    const ipp_tag_t type = values != nullptr ? ippGetValueTag(values) : IPP_TAG_ZERO;
    const bool isKnown = type == IPP_TAG_KEYWORD || type == IPP_TAG_ENUM || type == IPP_TAG_BOOLEAN;
    for (int at = 0; isKnown && at < ippGetCount(values); ++at) {
      const std::string text = type == IPP_TAG_KEYWORD ? ippGetString(values, at, nullptr)
                               : type == IPP_TAG_ENUM
                                   ? std::to_string(ippGetInteger(values, at))
                                   : std::string(ippGetBoolean(values, at) != 0 ? "true" : "false");
      if (!text.starts_with("custom_m")) words.push_back({name, text, type});
    }
  }
  return words;
}

std::vector<Setting> settingsOf(const Translation& translation, const std::vector<Word>& words) {
  const Ipp request(ippNewRequest(IPP_OP_VALIDATE_JOB));
  const Ipp media(ippNew());
  for (const Word& word : words) {
    const char* name = word.attribute.c_str();
    if (word.attribute == "media-source" || word.attribute == "media-type") {
      ippAddString(media.get(), IPP_TAG_ZERO, IPP_TAG_KEYWORD, name, nullptr, word.value.c_str());
    } else if (word.type == IPP_TAG_ENUM) {
      ippAddInteger(request.get(), IPP_TAG_JOB, IPP_TAG_ENUM, name, std::stoi(word.value));
    } else if (word.type == IPP_TAG_BOOLEAN) {
      ippAddBoolean(request.get(), IPP_TAG_JOB, name, static_cast<char>(word.value == "true"));
    } else {
      ippAddString(request.get(), IPP_TAG_JOB, IPP_TAG_KEYWORD, name, nullptr, word.value.c_str());
    }
  }
  if (ippFirstAttribute(media.get()) != nullptr) {
    ippAddCollection(request.get(), IPP_TAG_JOB, "media-col", media.get());
  }
  return translation.settingsOf(request.get()).settings;
}

// What the rules say of the settings; in a copy of this process, which keeps nothing.
// "refused" when a routine of the description takes one of them away.
std::string judgedByRules(const Session& session, const std::vector<Setting>& settings) {
  const auto judged = driver_feature::host::runInChild(
      driver_feature::host::ChildStreams::kDropped, [&]() -> std::vector<std::string> {
        driver_feature::host::RuleKeeper keeper(session);
        for (const Setting& setting : settings) {
          if (!applySetting(session.model(), setting)) return {"refused"};
          keeper.noteSet(setting.name);
        }
        return {keeper.keep(driver_feature::host::RuleConduct::kRefuse) ? "fine" : "conflict"};
      });
  return judged && !judged->empty() ? judged->front() : "refused";
}

class Client {
 public:
  explicit Client(const std::string& uri) {
    destination_ = cupsGetDestWithURI("trial", uri.c_str());
    http_ = cupsConnectDest(destination_, CUPS_DEST_FLAGS_DEVICE, 30000, nullptr, resource_.data(),
                            resource_.size(), nullptr, nullptr);
    if (http_ != nullptr) info_ = cupsCopyDestInfo(http_, destination_);
  }
  ~Client() {
    if (info_ != nullptr) cupsFreeDestInfo(info_);
    if (http_ != nullptr) httpClose(http_);
    cupsFreeDests(1, destination_);
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  bool isReady() const { return info_ != nullptr; }

  // What nothing can allow with the built-in hardware is not advertised.
  bool isSupported(const Word& word) const {
    return cupsCheckDestSupported(http_, destination_, info_, word.attribute.c_str(),
                                  word.value.c_str()) != 0;
  }

  bool hasConflict(const Word& first, const Word& second) const {
    cups_option_t* options = nullptr;
    const int count = cupsAddOption(first.attribute.c_str(), first.value.c_str(), 0, &options);
    cups_option_t* conflicts = nullptr;
    int conflictCount = 0;
    // With resolutions asked for, a conflict that has one is none to libcups.
    const int found =
        cupsCopyDestConflicts(http_, destination_, info_, count, options, second.attribute.c_str(),
                              second.value.c_str(), &conflictCount, &conflicts, nullptr, nullptr);
    cupsFreeOptions(conflictCount, conflicts);
    cupsFreeOptions(count, options);
    return found != 0;
  }

 private:
  cups_dest_t* destination_ = nullptr;
  http_t* http_ = nullptr;
  cups_dinfo_t* info_ = nullptr;
  std::array<char, 1024> resource_{};
};

bool isFinishing(const Word& word) {
  return word.attribute == "finishings" && word.value == "3";
}

void comparePairs(const Session& session, const Translation& translation, const Client& client,
                  const Request& request, const std::string& file, Sums& sums) {
  const std::vector<Word> words = wordsOf(translation);
  std::mt19937 random(request.seed);
  std::uniform_int_distribution<std::size_t> pick(0, words.size() - 1);
  for (int i = 0; i < request.pairs; ++i) {
    const Word& first = words[pick(random)];
    const Word& second = words[pick(random)];
    if (first.attribute == second.attribute || isFinishing(first)) continue;
    if (!client.isSupported(first) || !client.isSupported(second)) continue;
    const std::string expected = judgedByRules(session, settingsOf(translation, {first, second}));
    if (expected == "refused") continue;
    const bool found = client.hasConflict(first, second);
    ++sums.pairs;
    if (expected == "conflict") ++sums.conflicts;
    if (found == (expected == "conflict")) continue;
    ++sums.faults;
    std::cout << file << ": " << first.attribute << "=" << first.value << " and "
              << second.attribute << "=" << second.value << ": the rules say " << expected
              << ", libcups " << (found ? "conflict" : "fine") << '\n';
  }
}

void compare(const Request& request, const std::string& file, const std::string& uri, Sums& sums) {
  driver_feature::host::SessionRequest wanted;
  wanted.description = file;
  wanted.library = request.library;
  wanted.routines = request.routines;
  const auto session = Session::open(wanted);
  const Client client(uri);
  if (!session || !client.isReady()) {
    ++sums.faults;
    std::cout << file << ": "
              << (session ? std::string(cupsLastErrorString()) : session.error().text) << '\n';
    return;
  }
  const Translation translation(
      driver_feature::ipp::capabilitiesOf((*session)->model(), (*session)->additions()));
  comparePairs(**session, translation, client, request, file, sums);
}

}  // namespace

int main(int count, char** arguments) {
  Request request;
  Sums sums;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--library" && i + 1 < count) {
      request.library = arguments[++i];
    } else if (argument == "--routines" && i + 1 < count) {
      request.routines.emplace_back(arguments[++i]);
    } else if (argument == "--seed" && i + 1 < count) {
      request.seed = static_cast<unsigned>(std::stoul(arguments[++i]));
    } else if (argument == "--pairs" && i + 1 < count) {
      request.pairs = std::stoi(arguments[++i]);
    } else {
      const std::size_t at = argument.find('=');
      // The plug-in is loaded once in a process.
      const std::string file = argument.substr(0, at);
      const auto result = driver_feature::host::runInChild(
          driver_feature::host::ChildStreams::kShared, [&]() -> std::vector<std::string> {
            Sums own;
            compare(request, file, argument.substr(at + 1), own);
            return {std::to_string(own.pairs), std::to_string(own.conflicts),
                    std::to_string(own.faults)};
          });
      if (!result || result->size() != 3) {
        ++sums.faults;
        std::cout << file << ": ends the process\n";
        continue;
      }
      sums.pairs += std::stol((*result)[0]);
      sums.conflicts += std::stol((*result)[1]);
      sums.faults += std::stol((*result)[2]);
    }
  }
  std::cout << sums.pairs << " pairs, " << sums.conflicts << " in conflict: " << sums.faults
            << " judged differently\n";
  return sums.conflicts > 0 && sums.faults == 0 ? 0 : 1;
}

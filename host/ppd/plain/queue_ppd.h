// The PPD of a print queue: which options it has, and which choices a job gets.
//
// Two classes read such a PPD: LibcupsQueuePpd has libcups read it and can do
// everything; PlainQueuePpd reads it itself, in a fraction of the time, and is
// enough for most jobs of most queues.
#ifndef HOST_PPD_PLAIN_QUEUE_PPD_H_
#define HOST_PPD_PLAIN_QUEUE_PPD_H_

#include <optional>
#include <string>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::ppd {

// What a PPD asks of the pages of a document, with its marked choices.
class PageRules {
 public:
  // Whether a document with an odd number of pages gets a blank page at its end.
  virtual bool fillsLastSheet() const = 0;

  // Whether the marked tray, or the printer, needs the last page first. False
  // where the printer does that itself, by an option "OutputOrder".
  virtual bool stacksReversed() const = 0;

  // How many copies the printer makes at most.
  virtual int mostCopies() const = 0;

  // The PPD with which the print scheduler's own filter works on the pages.
  virtual std::string pagePpd() const = 0;

 protected:
  ~PageRules() = default;
};

class QueuePpd {
 public:
  QueuePpd() = default;
  virtual ~QueuePpd() = default;
  QueuePpd(const QueuePpd&) = delete;
  QueuePpd& operator=(const QueuePpd&) = delete;

  virtual const std::string& path() const = 0;

  // The values of an attribute "DriverFeature...", in the order of the file.
  virtual std::vector<std::string> attributes(const std::string& name) const = 0;

  // The option's keyword as the PPD spells it; nothing without such an option.
  // Upper and lower case are the same, as everywhere in print options.
  virtual std::optional<std::string> keywordOf(const std::string& option) const = 0;

  // Whether the option can have the value: a choice of its own, by its name in
  // the PPD or in the description, "Custom.VALUE" or "{PARAMETER=VALUE ...}".
  virtual bool hasChoice(const std::string& option, const std::string& value) const = 0;

  // Whether libcups marks any choice for the option, such as a known size for
  // "media". What was marked before is not any more.
  virtual bool understands(const host::Setting& option) = 0;

  // The names of the option's choices.
  virtual std::vector<std::string> choicesOf(const std::string& option) const = 0;

  // Marks the defaults of the queue and then what the options ask for. Options
  // that print schedulers know (media, sides, ...) mark those of the PPD.
  virtual void mark(const std::vector<host::Setting>& options) = 0;

  // What is marked, as settings of features: the option's keyword and its
  // choice, as the description calls it ("not set" without one);
  // "Keyword.Choice" with True or False where several choices may be marked;
  // "Keyword.Parameter" and its value for a custom choice.
  virtual std::vector<host::Setting> marked() const = 0;

  virtual bool isMarked(const std::string& option, const std::string& choice) const = 0;

  // Null when the PPD asks for nothing that is done to pages, and does not limit
  // the copies.
  virtual const PageRules* pageRules() const = 0;

  // How a job begins in job-control language, up to the options' commands;
  // empty when it does not.
  virtual std::string jobBegin(int job, const std::string& user,
                               const std::string& title) const = 0;

  // Whether a line of that, of the options' commands, or of the change to
  // PostScript may begin like PostScript.
  virtual bool hasHeaderLike() const = 0;

  // The end of a job, in job-control language or as libcups ends it.
  virtual std::string jobEnd() const = 0;

  // The PPD's patch (*JobPatchFile) as pstops writes it at the beginning of the
  // prolog of each document that is not converted; empty without one.
  virtual std::string jobPatch() const = 0;

  // What libcups writes for the section ExitServer, with the marked choices.
  virtual std::string exitServer() const = 0;

  // The PPD's own texts.
  virtual std::string jclBegin() const = 0;
  virtual std::string jclToPostScript() const = 0;
  virtual std::string jclEnd() const = 0;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_QUEUE_PPD_H_

// The PPD of a print queue, read by libcups: which options it has, and which
// choices stand for a job.
#ifndef HOST_PPD_QUEUE_QUEUE_PPD_H_
#define HOST_PPD_QUEUE_QUEUE_PPD_H_

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/ppd/ppd_file.h"
#include "host/settings/setting.h"

namespace driver_feature::ppd {

class QueuePpd {
 public:
  // Problems: those of readPpd().
  static host::Result<std::unique_ptr<QueuePpd>> open(const std::string& path);

  const std::string& path() const { return path_; }

  // The values of an attribute, in the order of the file.
  std::vector<std::string> attributes(const std::string& name) const;

  // The option's keyword as the PPD spells it; nothing without such an option.
  // Upper and lower case are the same, as everywhere in print options.
  std::optional<std::string> keywordOf(const std::string& option) const;

  // Whether the option can have the value: a choice of its own, by its name in
  // the PPD or in the description, "Custom.VALUE" or "{PARAMETER=VALUE ...}".
  bool hasChoice(const std::string& option, const std::string& value) const;

  // Whether libcups marks any choice for the option, such as a known size for
  // "media". What was marked before is not any more.
  bool understands(const host::Setting& option);

  // The PPD as libcups has it, with what is marked.
  ppd_file_t& file() const { return *ppd_; }

  // The names of the option's choices.
  std::vector<std::string> choicesOf(const std::string& option) const;

  // Marks the defaults of the queue and then what the options ask for. Options
  // that print schedulers know (media, sides, ...) mark those of the PPD.
  void mark(const std::vector<host::Setting>& options);

  // What is marked, as settings of features: the option's keyword and its
  // choice, as the description calls it ("not set" without one); "Keyword.Choice" with True or
  // False where several choices may stand; "Keyword.Parameter" and its value for a custom choice.
  std::vector<host::Setting> marked() const;

  // The text of a job's beginning in job-control language, and that of its
  // end, with the marked choices; but with 0 for the numbers of custom ones.
  std::string jobBegin(int job, const std::string& user, const std::string& title) const;
  std::string jobEnd() const;

  // The PPD's patch (*JobPatchFile) as pstops writes it at the beginning of the
  // prolog of each document that is not converted; empty without one.
  std::string jobPatch() const;

  // What libcups writes for the section ExitServer, with the marked choices.
  std::string exitServer() const;

  // The parts of the beginning and the end that do not depend on the job.
  std::string jclBegin() const;
  std::string jclOptions() const;
  std::string jclToPostScript() const;
  std::string jclEnd() const;

 private:
  // A choice that the description calls by another name than the PPD.
  struct ForeignName {
    std::string option;
    std::string choice;
    std::string name;  // The description's.
  };

  QueuePpd(const std::string& path, PpdPointer ppd);

  std::string choiceNamed(const std::string& option, const std::string& name) const;
  std::string nameOf(const std::string& option, const std::string& choice) const;

  void addMarked(ppd_option_t& option, std::vector<host::Setting>& settings) const;
  void addParameters(const std::string& keyword, std::vector<host::Setting>& settings) const;

  std::string path_;
  PpdPointer ppd_;
  std::vector<ForeignName> foreignNames_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_QUEUE_PPD_H_

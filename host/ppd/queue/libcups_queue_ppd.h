// The PPD of a print queue, read by libcups.
#ifndef HOST_PPD_QUEUE_LIBCUPS_QUEUE_PPD_H_
#define HOST_PPD_QUEUE_LIBCUPS_QUEUE_PPD_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/ppd/plain/foreign_names.h"
#include "host/ppd/plain/queue_ppd.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

class LibcupsQueuePpd : public QueuePpd, private PageRules {
 public:
  // Problems: those of readPpd().
  static host::Result<std::unique_ptr<LibcupsQueuePpd>> open(const std::string& path);

  LibcupsQueuePpd(const std::string& path, PpdPointer ppd);

  const std::string& path() const override { return path_; }
  std::vector<std::string> attributes(const std::string& name) const override;
  std::optional<std::string> keywordOf(const std::string& option) const override;
  bool hasChoice(const std::string& option, const std::string& value) const override;
  bool understands(const host::Setting& option) override;
  std::vector<std::string> choicesOf(const std::string& option) const override;
  void mark(const std::vector<host::Setting>& options) override;
  std::vector<host::Setting> marked() const override;
  bool isMarked(const std::string& option, const std::string& choice) const override;
  const PageRules* pageRules() const override { return this; }
  std::string jobBegin(int job, const std::string& user, const std::string& title) const override;
  bool hasHeaderLike() const override;
  std::string jobEnd() const override;
  std::string jobPatch() const override;
  std::string exitServer() const override;
  std::string jclBegin() const override;
  std::string jclToPostScript() const override;
  std::string jclEnd() const override;

  ppd_file_t& file() const { return *ppd_; }

 private:
  bool fillsLastSheet() const override;
  bool stacksReversed() const override;
  int mostCopies() const override;
  std::string pagePpd() const override;

  std::string wholeJobBegin(int job, const std::string& user, const std::string& title) const;
  void addMarked(ppd_option_t& option, std::vector<host::Setting>& settings) const;
  void addParameters(const std::string& keyword, std::vector<host::Setting>& settings) const;

  std::string path_;
  PpdPointer ppd_;
  ForeignNames foreignNames_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_LIBCUPS_QUEUE_PPD_H_

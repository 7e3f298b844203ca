// The PPD of a print queue, read without libcups.
#ifndef HOST_PPD_PLAIN_PLAIN_QUEUE_PPD_H_
#define HOST_PPD_PLAIN_PLAIN_QUEUE_PPD_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/ppd/plain/foreign_names.h"
#include "host/ppd/plain/plain_text.h"
#include "host/ppd/plain/queue_ppd.h"

namespace driver_feature::ppd {

// Marks choices as libcups does. That holds for PPDs with the stamp of their own
// text, and there for options that name a choice of the PPD; all others have no
// effect.
class PlainQueuePpd : public QueuePpd {
 public:
  // Null for a file that cannot be read, a PPD without the stamp of its own text,
  // one whose default is not a choice, and one that prints the last page first.
  static std::unique_ptr<PlainQueuePpd> open(const std::string& path);

  // The same for a text, whatever its stamp.
  static std::unique_ptr<PlainQueuePpd> of(const std::string& path, std::string text);

  const PlainText& text() const { return text_; }

  // Whether the option is none of the PPD's, or the value one of its choices.
  bool knows(const host::Setting& option) const;

  const std::string& path() const override { return path_; }
  std::vector<std::string> attributes(const std::string& name) const override;
  std::optional<std::string> keywordOf(const std::string& option) const override;
  bool hasChoice(const std::string& option, const std::string& value) const override;
  bool understands(const host::Setting& option) override;
  std::vector<std::string> choicesOf(const std::string& option) const override;
  void mark(const std::vector<host::Setting>& options) override;
  std::vector<host::Setting> marked() const override;
  bool isMarked(const std::string& option, const std::string& choice) const override;
  const PageRules* pageRules() const override { return nullptr; }
  std::string jobBegin(int job, const std::string& user, const std::string& title) const override;
  bool hasHeaderLike() const override { return false; }
  std::string jobEnd() const override;
  std::string jobPatch() const override { return ""; }
  std::string exitServer() const override { return ""; }
  std::string jclBegin() const override { return decoded("JCLBegin"); }
  std::string jclToPostScript() const override { return decoded("JCLToPSInterpreter"); }
  std::string jclEnd() const override { return decoded("JCLEnd"); }

 private:
  // The place of an option or of its marked choice.
  using Place = std::optional<std::size_t>;

  PlainQueuePpd(const std::string& path, std::unique_ptr<const std::string> bytes, PlainText text);

  Place optionNamed(std::string_view name) const;
  void unmark(Place option);
  void markChoice(std::size_t option, std::size_t choice);
  void markNamed(Place option, std::string_view name);
  void settlePageSize();
  std::optional<std::string_view> pageRegionRule() const;
  std::string decoded(std::string_view attribute) const;

  std::string path_;
  std::unique_ptr<const std::string> bytes_;  // What the views of text_ point into.
  PlainText text_;
  ForeignNames foreignNames_;
  std::vector<Place> marks_;  // Of each option its marked choice.
  Place pageSize_, pageRegion_, inputSlot_, manualFeed_;
  std::string_view size_;  // The name of the size marked last.
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_PLAIN_QUEUE_PPD_H_

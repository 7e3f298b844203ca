#include "programs/filter/page_work.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "host/ppd/plain/sheetless_page_ppd.h"
#include "programs/filter/cancellation.h"
#include "programs/filter/kept_file.h"
#include "programs/filter/messages.h"
#include "programs/filter/page_options.h"

namespace driver_feature::filter {

namespace {

constexpr std::uint64_t kSpareRoom = 1U << 20U;

}  // namespace

PageWork::PageWork(const FilterArguments& arguments, const ppd::QueuePpd* ppd)
    : arguments_(arguments),
      copies_(arguments.copies),
      ppd_(ppd),
      rules_(ppd != nullptr ? ppd->pageRules() : nullptr) {}

bool PageWork::take(const host::Setting& option) {
  const PageOption known = pageOption(option);
  if (known.kind == PageOptionKind::kNone) return false;
  // The filters that have converted the document have seen to the pages.
  if (arguments_.isConverted) return true;
  switch (known.kind) {
    case PageOptionKind::kRefused:
      writeMessage(Message::kWarning, "option " + option.name + " has no effect: " + known.reason);
      break;
    case PageOptionKind::kWork:
      asked_.push_back(option.name);
      options_.push_back(option);
      break;
    case PageOptionKind::kCollation:
      collation_ = option.name;
      break;
    case PageOptionKind::kDetail:
      options_.push_back(option);
      break;
    default:
      break;
  }
  return true;
}

// The order that the printer needs counts unless the job asks for one.
bool PageWork::isReversed() const {
  const OutputOrder order = outputOrder(arguments_.options);
  if (order != OutputOrder::kUnsaid) return false;  // Then the option is in the list.
  return rules_ != nullptr && rules_->stacksReversed();
}

bool PageWork::wantsCopies(bool takesCopies) const {
  if (copies_ <= 1) return false;
  if (ppd_ == nullptr) return !collation_.empty();
  if (!takesCopies && rules_ != nullptr && copies_ > rules_->mostCopies()) return true;
  return !collation_.empty() && !ppd_->isMarked("Collate", "True");
}

bool PageWork::wantsWork() const {
  if (!asked_.empty() || isMirrored_ || isReversed() || isClassified()) return true;
  return rules_ != nullptr && rules_->fillsLastSheet();
}

void PageWork::warn(const std::vector<std::string>& options, const std::string& reason) const {
  for (const std::string& option : options) {
    writeMessage(
        Message::kWarning,
        std::string("option ").append(option).append(" has no effect, because ").append(reason));
  }
}

// What nobody has asked for by an option is worth a warning only where the
// scheduler insists on it.
void PageWork::giveUp(const std::string& reason) {
  works_ = false;
  options_.clear();
  warn(asked_, reason);
  if (!asked_.empty()) return;
  writeMessage(isClassified() ? Message::kWarning : Message::kDebug,
               "the pages are printed as they are, because " + reason);
}

host::Result<> PageWork::decide(bool takesCopies) {
  if (arguments_.isConverted) return {};
  works_ = wantsWork();
  makesCopies_ = wantsCopies(takesCopies);
  if (!works_ && !makesCopies_) return {};
  if (!hasPageFilter()) {
    giveUpAll("the scheduler's filter " + pageFilterPath() + " is missing");
    return {};
  }
  host::Result<> read = document_.read(arguments_.file);
  if (!read || isCancelled()) return read;
  if (!document_.isDocument()) {
    giveUpAll("the job is not one PostScript document");
  } else if (!document_.hasPages()) {
    const std::string reason = "no comments of the document show its pages";
    if (works_) giveUp(reason);
    // Without any comments it is one page, of which copies can be made.
    if (makesCopies_ && document_.isStructured()) giveUpAll(reason);
  }
  return checkRoom();
}

void PageWork::giveUpAll(const std::string& reason) {
  if (works_) giveUp(reason);
  if (makesCopies_ && !collation_.empty()) warn({collation_}, reason);
  makesCopies_ = false;
}

// The filter keeps pages that it needs once more, and does not notice when it
// cannot.
host::Result<> PageWork::checkRoom() const {
  const bool keepsPages = makesCopies_ || (works_ && (isReversed() || asksForReverse()));
  if (!keepsPages || hasRoomFor(document_.size() + kSpareRoom)) return {};
  return host::refused("the job cannot be kept in " + temporaryFolder() +
                       ": there is not enough room");
}

bool PageWork::asksForReverse() const {
  return outputOrder(options_) == OutputOrder::kReverse;
}

host::Result<> PageWork::start(FilterArguments& arguments, JobTexts& texts) {
  if (isCancelled() || (!works_ && !makesCopies_)) return {};
  std::vector<host::Setting> options = options_;
  // The commands of the printer's own language come from the description.
  options.push_back({"emit-jcl", "false"});
  if (makesCopies_) options.push_back({"Collate", "true"});
  if (works_ && isMirrored_) options.push_back({"mirror", "true"});
  if (works_ && isReversed()) options.push_back({"OutputOrder", "Reverse"});
  FilterArguments forFilter = arguments;
  forFilter.copies = makesCopies_ ? copies_ : 1;
  host::Result<> started = filter_.start(
      document_.descriptor(), rules_ != nullptr ? rules_->pagePpd() : ppd::kSheetlessPagePpd,
      forFilter, options);
  if (!started) return started;
  arguments.file.clear();
  // The filter does not say that it has ended too early.
  if (document_.isStructured()) {
    texts.end = DocumentEnd::kTrailer;
  } else {
    texts.end = DocumentEnd::kPages;
    texts.pages = copies_;
  }
  return {};
}

}  // namespace driver_feature::filter

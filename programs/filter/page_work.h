// Work on the pages of a job's document, and who does it.
//
// A document that was sent as PostScript goes through the scheduler's own
// filter for pages when an option, the queue's PPD or the scheduler asks for
// work on pages. Every other one is copied unchanged.
#ifndef PROGRAMS_FILTER_PAGE_WORK_H_
#define PROGRAMS_FILTER_PAGE_WORK_H_

#include <string>
#include <vector>

#include "host/ppd/plain/queue_ppd.h"
#include "host/settings/setting.h"
#include "programs/filter/arguments.h"
#include "programs/filter/copy_job.h"
#include "programs/filter/kept_document.h"
#include "programs/filter/page_filter.h"

namespace driver_feature::filter {

class PageWork {
 public:
  // `ppd` may be null. It must outlive this object.
  PageWork(const FilterArguments& arguments, const ppd::QueuePpd* ppd);

  // Takes an option of the job that no feature has taken, if it is for pages.
  // A warning reports an option that asks for something unknown.
  bool take(const host::Setting& option);

  // Mirrors the pages if it can be done; there is no message if not.
  void takeMirror() { isMirrored_ = true; }

  // Decides who works on the pages; for that the job may be read. Each option
  // that cannot be carried out gets a WARNING line. The PPD has the job's choices
  // marked. `takesCopies` says that a feature makes copies. Returns why the job
  // fails.
  host::Result<> decide(bool takesCopies);

  // Whether the pages are worked on.
  bool works() const { return works_; }

  // Whether the copies are made here, and not by the printer.
  bool makesCopies() const { return makesCopies_; }

  // Starts the work, if there is any: the job then comes from standard input,
  // and `arguments` and `texts` say so. The PPD has the job's choices marked.
  host::Result<> start(FilterArguments& arguments, JobTexts& texts);

  // Ends it, as PageFilter::finish() does.
  host::Result<> finish() { return filter_.finish(); }

 private:
  bool wantsCopies(bool takesCopies) const;
  bool isReversed() const;
  bool wantsWork() const;
  bool asksForReverse() const;
  void warn(const std::vector<std::string>& options, const std::string& reason) const;
  void giveUp(const std::string& reason);
  void giveUpAll(const std::string& reason);
  host::Result<> checkRoom() const;

  const FilterArguments& arguments_;
  const int copies_;
  const ppd::QueuePpd* ppd_;
  const ppd::PageRules* rules_;         // The PPD's; null without any.
  std::vector<host::Setting> options_;  // For the filter.
  std::vector<std::string> asked_;      // The names of those that ask for something.
  std::string collation_;               // The option that asks for it; empty without one.
  bool isMirrored_ = false;
  bool works_ = false;        // The filter works on the pages.
  bool makesCopies_ = false;  // It makes the copies.
  KeptDocument document_;
  PageFilter filter_;
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PAGE_WORK_H_

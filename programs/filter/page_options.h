// The job's options that ask for other pages than the document has, for pages
// in another order, or for something on them.
//
// The print scheduler's own filter "pstops" carries them out. Which of its
// options have an effect is decided here; what the effect is, is its affair.
#ifndef PROGRAMS_FILTER_PAGE_OPTIONS_H_
#define PROGRAMS_FILTER_PAGE_OPTIONS_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/settings/setting.h"

namespace driver_feature::filter {

enum class PageOptionKind {
  kNone,       // Not for pages.
  kIdle,       // For pages, but asks for nothing with this value.
  kDetail,     // Says more about what another one asks for.
  kWork,       // Asks for something.
  kCollation,  // Asks for copies that come one after another.
  kRefused,    // Asks for something that pstops does not know; `reason` says what it knows.
};

struct PageOption {
  PageOptionKind kind = PageOptionKind::kNone;
  std::string reason;
};

// Names and values are the same in either case, as everywhere in print options.
PageOption pageOption(const host::Setting& option);

// The reversed order is asked for by "outputorder" or, without it, by the
// printer; nothing is said when the job's option asks for the usual one.
enum class OutputOrder { kUnsaid, kNormal, kReverse };
OutputOrder outputOrder(const std::vector<host::Setting>& options);

// Whether the scheduler has pages labelled with a security class.
bool isClassified();

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_PAGE_OPTIONS_H_

// The PPD with which the print scheduler's own filter works on the pages of a
// job.
#ifndef HOST_PPD_QUEUE_PAGE_PPD_H_
#define HOST_PPD_QUEUE_PAGE_PPD_H_

#include <cups/ppd.h>

#include <string>

namespace driver_feature::ppd {

// What the marked choices of a queue's PPD mean for pages: the sheet with its
// margins, the direction of landscape, and whether both sides are printed. It
// has no command of the printer, because the job gets those of the description,
// and it names a filter, so that this filter alone reports the pages.
//
// `ppd` may be null.
std::string pagePpd(ppd_file_t* ppd);

// Whether the marked choices have both sides of a sheet printed.
bool printsBothSides(ppd_file_t& ppd);

// Whether the PPD wants a blank page after a document with an odd number of
// pages, with what is marked.
bool fillsLastSheet(ppd_file_t& ppd);

// Whether the marked tray, or the printer, needs the last page first. False
// where the printer does that itself, by an option "OutputOrder".
bool stacksReversed(ppd_file_t& ppd);

// How many copies the printer makes at most.
int mostCopies(ppd_file_t& ppd);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_PAGE_PPD_H_

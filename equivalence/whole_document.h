// A document as pstops, a filter of the print scheduler, leaves it, and what
// pstops adds to it.
#ifndef EQUIVALENCE_WHOLE_DOCUMENT_H_
#define EQUIVALENCE_WHOLE_DOCUMENT_H_

#include <cups/ppd.h>

#include <string>

namespace driver_feature::equivalence {

// Two pages with every part that a section goes into, and with the comments
// that pstops writes.
extern const char* const kWholeDocument;

// A job without the procedures of pstops and without two comments that it writes
// in the header. In the filter's jobs they are where the filter has let pstops
// work on the pages.
std::string withoutPstopsProcedures(std::string job);

// The job of pstops without what pstops itself adds, which does not depend on
// what libcups writes for the PPD's options: the same procedures and comments,
// and its end of file if the PPD names another filter, for which libcups writes
// none.
std::string withoutPstopsTexts(std::string job, const ppd_file_t& ppd);

// A job without the PPD's patch, which is written once into each job: by pstops
// into the jobs that it converts.
std::string withoutJobPatch(std::string job, const ppd_file_t& ppd);

// The expected result for a job that pstops has made of the document: the front
// and the end of `direct`, the result for the document itself; and between them
// the job, with the sections of `direct` in their places. Empty when `direct`
// is not such a job.
std::string expectedOfConverted(const std::string& converted, const std::string& direct);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_WHOLE_DOCUMENT_H_

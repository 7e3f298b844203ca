// Whole jobs: compares what the filter for print queues makes of a document
// with what pstops, the print scheduler's filter, makes of it with the
// printer's PPD.
#ifndef EQUIVALENCE_WHOLE_JOBS_H_
#define EQUIVALENCE_WHOLE_JOBS_H_

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <vector>

#include "equivalence/comparison.h"
#include "host/base/result.h"

namespace driver_feature::equivalence {

struct WholeJobRequest {
  std::string programs;     // The folder of driver-feature and its filter.
  std::string pstops;       // The program.
  std::string ppd;          // The printer's.
  std::string description;  // Made of it.
  std::string library;      // The feature library; empty to search it.
  std::vector<std::string> routines;
};

class WholeJobs {
 public:
  // Writes the PPD of a queue, and documents, into files that are named after
  // the description and removed at the end. Fails when the queue cannot be made.
  static host::Result<std::unique_ptr<WholeJobs>> open(const WholeJobRequest& request,
                                                       const ppd_file_t& ppd);
  ~WholeJobs();
  WholeJobs(const WholeJobs&) = delete;
  WholeJobs& operator=(const WholeJobs&) = delete;

  // Prints with the options, twice: "whole job", the document as it is; and
  // "converted job", the document after pstops has made a job of it with the
  // queue's PPD. The first is compared with the job of pstops for the
  // printer's PPD, the second with the first. Adds the differences, also those
  // found before a program fails.
  host::Result<> compare(const std::string& options, std::vector<Difference>& differences);

  std::size_t bytes() const { return bytes_; }  // Of all jobs that were compared.
  bool hasFront() const { return hasFront_; }   // The last job began with job-control language.

 private:
  WholeJobs(const WholeJobRequest& request, const ppd_file_t& ppd);
  host::Result<std::string> filter(const std::string& file, const std::string& options) const;
  host::Result<std::string> convert(const std::string& ppd, const std::string& options) const;

  WholeJobRequest request_;
  const ppd_file_t& ppd_;
  std::string queue_;  // Files.
  std::string document_;
  std::string converted_;
  std::size_t bytes_ = 0;
  bool hasFront_ = false;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_WHOLE_JOBS_H_

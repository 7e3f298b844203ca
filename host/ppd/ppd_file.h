// A PPD file as libcups reads it.
#ifndef HOST_PPD_PPD_FILE_H_
#define HOST_PPD_PPD_FILE_H_

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/base/result.h"
#include "host/ppd/plain/keywords.h"

namespace driver_feature::ppd {

struct PpdDeleter {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using PpdPointer = std::unique_ptr<ppd_file_t, PpdDeleter>;

// Reads a PPD file, compressed with gzip or not. Its default choices are
// marked, and the page size as libcups marks it before it writes: as PageSize,
// as PageRegion or as neither. Problems: kUnreadable, and kMalformed for
// what is not a PPD file, each with its cause.
host::Result<PpdPointer> readPpd(const std::string& path);

// The bytes of a PPD file, compressed with gzip or not; those up to the first
// that cannot be read.
std::string ppdBytes(const std::string& path);

// The options of all groups, in the order of the file. libcups puts none into
// subgroups.
std::vector<ppd_option_t*> optionsOf(ppd_file_t& ppd);

// The choices of an option, in the order of the file.
std::vector<ppd_choice_t*> choicesOf(ppd_option_t& option);

// While it lives, the numbers of all custom choices are 0, page sizes included.
//
// libcups makes room for ten bytes of such a number, and writes those that need
// more past the end of its memory. The values of a job come from its user, so
// they must be assumed to be hostile.
class CustomNumbersAway {
 public:
  explicit CustomNumbersAway(ppd_file_t& ppd);
  ~CustomNumbersAway();
  CustomNumbersAway(const CustomNumbersAway&) = delete;
  CustomNumbersAway& operator=(const CustomNumbersAway&) = delete;

 private:
  std::vector<std::pair<ppd_cparam_t*, ppd_cpvalue_t>> away_;
  std::vector<std::pair<ppd_size_t*, ppd_size_t>> sizes_;
};

// The text of a section with what is marked, as libcups writes it; but with 0
// for the numbers of custom choices.
std::string emittedText(ppd_file_t& ppd, ppd_section_t section);

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PPD_FILE_H_

// A PPD in libcups, with which our description of the same PPD is compared.
#ifndef EQUIVALENCE_PEER_H_
#define EQUIVALENCE_PEER_H_

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <vector>

#include "equivalence/ppd_text.h"
#include "host/base/result.h"

namespace driver_feature::equivalence {

// Counts of what a PPD holds.
struct PpdFigures {
  long options = 0;
  long choices = 0;
  long jclOptions = 0;
  long customOptions = 0;
  long longestCode = 0;       // In bytes.
  bool hasEscapes = false;    // A code holds the byte ESC.
  bool hasHighBytes = false;  // A code holds a byte above 0x7E.
};

class Peer {
 public:
  // Fails with libcups' reason and the line when libcups does not open the file.
  static host::Result<std::unique_ptr<Peer>> open(const std::string& path);

  ppd_file_t& file() const { return *file_; }

  // All options of all groups in the order of the file. A keyword occurs once,
  // even when several groups have it: libcups finds only one of them.
  const std::vector<ppd_option_t*>& options() const { return options_; }

  // The parameters of an option's choice "Custom"; null when it has none.
  ppd_coption_t* customOption(const ppd_option_t& option) const;

  // Marks the defaults alone.
  void markDefaults();

  // Marks a choice, its parameters first. Of a "PickMany" option the choices
  // of all marks with its keyword are marked together; an empty choice marks
  // none.
  void mark(const Marks& marks);

  // Lets libcups apply its rules of page size and page region, as it does
  // when it writes a section. Required before settings().
  void settle();

  // The marks as settings of an imported description.
  FeatureValues settings() const;

  // What libcups writes for the marks.
  JobTexts texts() const;

  PpdFigures figures() const;

 private:
  struct Closer {
    void operator()(ppd_file_t* file) const { ::ppdClose(file); }
  };

  explicit Peer(ppd_file_t* file);
  void collectOptions(ppd_group_t* groups, int count);
  void unmark(const std::string& option);
  void storeValue(const ppd_option_t& option, const CustomValue& value);
  void appendCustomSettings(const ppd_option_t& option, FeatureValues& settings) const;

  std::unique_ptr<ppd_file_t, Closer> file_;
  std::vector<ppd_option_t*> options_;
};

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_PEER_H_

// A description that a client has opened.
#ifndef PROGRAMS_DRIVER_FEATURE_LSP_OPEN_TEXT_H_
#define PROGRAMS_DRIVER_FEATURE_LSP_OPEN_TEXT_H_

#include <optional>
#include <string>
#include <vector>

#include "host/check/findings.h"
#include "host/editor/markup.h"
#include "host/editor/text_lines.h"

namespace driver_feature::cli {

// A finding with what of the text it is about.
struct MarkedFinding {
  check::Finding finding;
  editor::Range range;
};

class OpenText {
 public:
  OpenText(std::optional<long> version, std::string text);

  const std::optional<long>& version() const { return version_; }
  const editor::Markup& markup() const { return markup_; }
  const editor::TextLines& lines() const { return lines_; }

  // Those of this text; none before it has been checked.
  const std::vector<MarkedFinding>& findings() const { return findings_; }
  void setFindings(check::Findings findings);

 private:
  editor::Range rangeOf(std::size_t offset) const;

  std::optional<long> version_;
  editor::Markup markup_;
  editor::TextLines lines_;
  std::vector<MarkedFinding> findings_;
};

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_LSP_OPEN_TEXT_H_

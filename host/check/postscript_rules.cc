// What is written to PostScript, as a whole: with the defaults, and with each
// other option of a list in its place.

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "host/check/postscript_scan.h"
#include "host/check/rules.h"

namespace driver_feature::check {

namespace {

using FaultKind = Fault::Kind;

const char* closingOf(const std::string& bracket) {
  if (bracket == "<<") return ">>";
  if (bracket == "<") return ">";
  if (bracket == "[") return "]";
  return bracket == "{" ? "}" : ")";
}

void reportUnclosed(const Spot& spot, const std::string& bracket, Findings& findings) {
  findings.push_back({Code::kUnbalanced,
                      spot.position(),
                      "\"" + bracket + "\" in " + describePiece(*spot.piece) + " is not closed",
                      std::string("close it with \"") + closingOf(bracket) + "\"",
                      {}});
}

void reportUnopened(const Fault& fault, Findings& findings) {
  findings.push_back(
      {Code::kUnbalanced,
       fault.spot.position(),
       "\"" + fault.text + "\" in " + describePiece(*fault.spot.piece) + " closes nothing",
       "open it, or remove it",
       {}});
}

void reportWrongPair(const Fault& fault, Findings& findings) {
  const host::Position opened = fault.partner.position();
  findings.push_back({Code::kUnbalanced,
                      fault.spot.position(),
                      "\"" + fault.text + "\" in " + describePiece(*fault.spot.piece) +
                          " closes the \"" + fault.other + "\" of line " +
                          std::to_string(opened.line) + ", column " + std::to_string(opened.column),
                      std::string("close that with \"") + closingOf(fault.other) + "\"",
                      {}});
}

void reportComment(const Fault& fault, Findings& findings) {
  findings.push_back({Code::kOpenComment,
                      fault.spot.position(),
                      describePiece(*fault.spot.piece) +
                          " ends within a comment, which swallows what is written after it",
                      "end it with &#10;",
                      {}});
}

void reportTokens(const Fault& fault, Findings& findings) {
  findings.push_back({Code::kJoinedTokens,
                      fault.spot.position(),
                      describePiece(*fault.spot.piece) + " and " +
                          describePiece(*fault.partner.piece) + " run together as \"" + fault.text +
                          "\"",
                      "end the first with &#10;",
                      {}});
}

void reportPerCent(const Fault& fault, Findings& findings) {
  const bool isTemplate = fault.spot.piece->owner->role != host::Role::kOption;
  findings.push_back({Code::kSinglePerCent,
                      fault.spot.position(),
                      describePiece(*fault.spot.piece) + " writes the structure comment \"" +
                          fault.text + "\" with one per cent sign",
                      isTemplate ? "write %%%%" : "write %%",
                      {}});
}

void report(const Fault& fault, Findings& findings) {
  switch (fault.kind) {
    case FaultKind::kUnopened:
      return reportUnopened(fault, findings);
    case FaultKind::kUnclosed:
      return reportUnclosed(fault.spot, fault.text, findings);
    case FaultKind::kWrongPair:
      return reportWrongPair(fault, findings);
    case FaultKind::kOpenComment:
      return reportComment(fault, findings);
    case FaultKind::kJoinedTokens:
      return reportTokens(fault, findings);
    case FaultKind::kSinglePerCent:
      return reportPerCent(fault, findings);
  }
}

// What a list leaves open.
std::string effectOf(const PostScriptScan& scan) {
  std::string effect = scan.isInComment() ? "%" : "";
  for (const auto& open : scan.open()) effect += open.bracket + " ";
  return effect;
}

class PostScriptCheck {
 public:
  PostScriptCheck(const WrittenOutput& output, Findings& findings)
      : output_(output), findings_(findings) {}

  void run() {
    readDefaults();
    for (std::size_t i = 0; i < output_.lists.size(); ++i) checkOptions(i);
  }

 private:
  // What a list finds before it, and what it leaves when it writes its default.
  struct ListStep {
    std::optional<PostScriptScan> before;
    std::string effect;
  };

  void readDefaults() {
    PostScriptScan scan;
    steps_.resize(output_.lists.size());
    std::size_t begun = 0;
    std::size_t ended = 0;
    for (std::size_t i = 0; i <= output_.pieces.size(); ++i) {
      // A list may write no piece, and end where it begins.
      for (; ended < begun && output_.lists[ended].end == i; ++ended) endList(ended, scan);
      for (; begun < steps_.size() && output_.lists[begun].begin == i; ++begun) {
        beginList(begun, scan);
        if (output_.lists[begun].end == i) endList(ended++, scan);
      }
      if (i < output_.pieces.size()) scan.read(output_.pieces[i]);
    }
    scan.finish();
    reportFaults(scan);
    for (const auto& open : scan.open()) reportOpen(open);
  }

  // Where more is open than anybody nests, the output does not show which
  // option is to blame.
  void beginList(std::size_t index, PostScriptScan& scan) {
    constexpr std::size_t kDeepest = 64;
    reportFaults(scan);
    if (scan.open().size() <= kDeepest) steps_[index].before = scan;
  }

  void endList(std::size_t index, PostScriptScan& scan) {
    reportFaults(scan);
    if (steps_[index].before) steps_[index].effect = effectOf(scan);
  }

  // Each other option must leave what the selected one leaves, or nothing when that
  // is wrong. The first that does not is reported.
  void checkOptions(std::size_t index) {
    const WrittenList& list = output_.lists[index];
    if (!steps_[index].before) return;
    const PostScriptScan& before = *steps_[index].before;
    const bool isFaulty = faulty_.contains(list.feature);
    const std::string effect = isFaulty ? effectOf(before) : steps_[index].effect;
    for (const auto& option : list.feature->children) {
      if (option.get() == list.selected) continue;
      const Pieces pieces = writeOption(*list.feature, *option, kPostScriptOutput);
      PostScriptScan scan = before;
      for (const Piece& piece : pieces) scan.read(piece);
      if (reportFaults(scan)) return;
      if (effectOf(scan) != effect && reportEffect(*list.feature, *option, scan)) return;
    }
  }

  // Whether there was a fault that has not been reported before, with another
  // option of the same list.
  bool reportFaults(PostScriptScan& scan) {
    bool isNew = false;
    for (const Fault& fault : scan.takeFaults()) {
      if (!isFirst(fault.spot, static_cast<int>(fault.kind))) continue;
      isNew = true;
      report(fault, findings_);
      faulty_.insert(fault.spot.piece->unit);
    }
    return isNew;
  }

  bool reportOpen(const PostScriptScan::Open& open) {
    if (open.bracket == "mark" || !isFirst(open.spot, static_cast<int>(FaultKind::kUnclosed))) {
      return false;
    }
    reportUnclosed(open.spot, open.bracket, findings_);
    faulty_.insert(open.spot.piece->unit);
    return true;
  }

  bool reportEffect(const host::Element& feature, const host::Element& option,
                    PostScriptScan& scan) {
    for (const auto& open : scan.open()) {
      if (open.spot.piece->unit == &feature) return reportOpen(open);
    }
    if (scan.isInComment()) {
      scan.finish();
      return reportFaults(scan);
    }
    findings_.push_back({Code::kUnbalanced,
                         option.positionOf("PSCommand"),
                         "PSCommand of " + describeElement(option) +
                             " leaves other brackets open than that of the default",
                         "open and close the same as in the other options",
                         {}});
    return true;
  }

  // A few of a kind are enough for one command.
  bool isFirst(const Spot& spot, int kind) {
    constexpr std::size_t kMost = 5;
    auto& places = reported_[{spot.piece->attribute, kind}];
    return places.size() < kMost && places.insert(spot.position()).second;
  }

  const WrittenOutput& output_;
  Findings& findings_;
  std::vector<ListStep> steps_;
  std::set<const host::Element*> faulty_;
  std::map<std::pair<const host::Attribute*, int>, std::set<host::Position>> reported_;
};

}  // namespace

void checkPostScript(const host::Element& description, Findings& findings) {
  const WrittenOutput output = writeOutput(description, kPostScriptOutput);
  PostScriptCheck(output, findings).run();
}

}  // namespace driver_feature::check

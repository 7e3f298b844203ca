// What is written to PJL, line by line: with the defaults, and with each other
// option of a list in its place.

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "host/check/pjl_words.h"
#include "host/check/rules.h"
#include "host/check/written_output.h"

namespace driver_feature::check {

namespace {

constexpr std::string_view kExit = "\x1B%-12345X";
constexpr std::string_view kDoubledExit = "\x1B%%-12345X";

// The text of pieces, and the piece that each byte of it comes from.
class JoinedText {
 public:
  void add(const Piece& piece) {
    starts_[text_.size()] = &piece;
    text_ += piece.text;
  }
  const std::string& text() const { return text_; }
  const Piece& pieceAt(std::size_t offset) const {
    return *std::prev(starts_.upper_bound(offset))->second;
  }
  host::Position placeOf(std::size_t offset) const {
    const auto start = std::prev(starts_.upper_bound(offset));
    return start->second->place(offset - start->first);
  }

 private:
  std::string text_;
  std::map<std::size_t, const Piece*> starts_;  // Of two at one place, the one with text.
};

// What the lines before a line have left.
struct PjlState {
  bool isInDocument = false;  // After ENTER LANGUAGE.
  bool hasCommands = false;   // Since the last universal exit.
  bool isForeign = false;     // Whether other languages have been written since then.
};

// The codes that have been reported of a feature or group.
using Reported = std::set<std::pair<const host::Element*, Code>>;

// Reads lines one after another. One finding of a kind is enough for a list.
class PjlReader {
 public:
  PjlReader(const JoinedText& joined, PjlState state, Reported& reported, Findings& findings)
      : joined_(joined), state_(state), reported_(reported), findings_(findings) {}

  // The states before the lines, by the lines' offsets.
  const std::map<std::size_t, PjlState>& states() const { return states_; }

  void readAll() {
    const std::string_view text = joined_.text();
    for (std::size_t begin = 0; begin < text.size();) {
      states_[begin] = state_;
      const std::size_t end = std::min(text.find('\n', begin), text.size());
      isUnfinished_ = end == text.size();
      readLine(begin, text.substr(begin, end - begin));
      begin = end + 1;
    }
    if (!isUnfinished_) states_[text.size()] = state_;
  }

 private:
  void readLine(std::size_t begin, std::string_view line) {
    for (std::size_t exit = line.find(kExit); exit != std::string_view::npos;
         exit = line.find(kExit)) {
      readCommand(begin, line.substr(0, exit));
      leave(begin + exit);
      begin += exit + kExit.size();
      line.remove_prefix(exit + kExit.size());
    }
    readCommand(begin, line);
  }

  // The universal exit may also end all of it.
  void leave(std::size_t exit) {
    const std::string_view rest = std::string_view(joined_.text()).substr(exit + kExit.size());
    const bool isLast = rest.find_first_not_of(" \t\r\n") == std::string_view::npos;
    if (state_.hasCommands && !state_.isInDocument && !state_.isForeign && !isLast) {
      report(Code::kLateUniversalExit, exit, "writes the universal exit after other lines",
             "write it first, by a name that sorts first");
    }
    state_ = {};
  }

  void readCommand(std::size_t begin, std::string_view part) {
    const std::string_view command = withoutBlanks(part);
    if (command.empty()) return;
    begin += static_cast<std::size_t>(command.data() - part.data());
    if (state_.isInDocument) {
      if (!isPjlCommand(command)) return;
      return report(Code::kAfterEnterLanguage, begin, "is written after ENTER LANGUAGE",
                    "give it a name that sorts first, or put ENTER LANGUAGE into a group");
    }
    state_.hasCommands = true;
    if (command.starts_with(kDoubledExit)) {
      return report(Code::kNoPjlPrefix, begin, "writes the universal exit with two per cent signs",
                    "write one; only those of command templates are doubled");
    }
    if (!isPjlCommand(command)) return readOther(begin, command);
    checkQuotes(begin, command);
    state_.isInDocument = entersLanguage(command);
  }

  // Other printer languages, and characters that PJL cannot carry, are left alone.
  void readOther(std::size_t begin, std::string_view command) {
    if (state_.isForeign || !isPlain(command) || !looksLikePjl(command)) {
      state_.isForeign = true;
      return;
    }
    constexpr std::size_t kLongestQuote = 20;
    report(Code::kNoPjlPrefix, begin,
           "writes the line \"" + std::string(command.substr(0, kLongestQuote)) +
               (command.size() > kLongestQuote ? "..." : "") + "\", which does not begin with @PJL",
           "begin it with @PJL");
  }

  // An unfinished line may be finished by another command.
  void checkQuotes(std::size_t begin, std::string_view command) {
    if (isUnfinished_ || std::count(command.begin(), command.end(), '"') % 2 == 0) return;
    report(Code::kOpenPjlString, begin + command.rfind('"'), "has an unmatched quotation mark",
           "close the string with &quot;");
  }

  void report(Code code, std::size_t offset, const std::string& words, const std::string& remedy) {
    const Piece& piece = joined_.pieceAt(offset);
    if (!reported_.insert({piece.unit, code}).second) return;
    findings_.push_back(
        {code, joined_.placeOf(offset), describePiece(piece) + " " + words, remedy, {}});
  }

  const JoinedText& joined_;
  PjlState state_;
  Reported& reported_;
  Findings& findings_;
  std::map<std::size_t, PjlState> states_;
  bool isUnfinished_ = false;
};

void checkOptions(const WrittenList& list, PjlState state, Reported& reported, Findings& findings) {
  for (const auto& option : list.feature->children) {
    if (option.get() == list.selected) continue;
    const Pieces pieces = writeOption(*list.feature, *option, kPjlOutput);
    JoinedText joined;
    for (const Piece& piece : pieces) joined.add(piece);
    PjlReader(joined, state, reported, findings).readAll();
  }
}

// Whether nothing is written after an equals sign, or between quotation marks after
// one, at the end of a line.
bool isEmptyValue(std::string_view before, std::string_view after) {
  if (before.ends_with('"') && after.starts_with('"')) {
    before.remove_suffix(1);
    after.remove_prefix(1);
  }
  const bool isInString = std::count(before.begin(), before.end(), '"') % 2 != 0;
  return !isInString && withoutBlanks(before).ends_with('=') && withoutBlanks(after).empty();
}

// A text with an empty default.
void checkEmptyValue(const Piece& piece, std::string_view text, std::size_t offset,
                     Findings& findings) {
  const bool isText = piece.isValue && piece.unit->isKind(host::FeatureKind::kTextEntry);
  if (!isText || !piece.text.empty()) return;
  const std::string_view before = text.substr(0, offset);
  const std::string_view after = text.substr(offset);
  if (!isEmptyValue(before.substr(before.rfind('\n') + 1), after.substr(0, after.find('\n')))) {
    return;
  }
  findings.push_back(
      {Code::kEmptyPjlValue,
       piece.place(0),
       describePiece(piece) + " is written without a value, because the default is empty",
       "give DefaultValue, or write the command with a routine",
       {}});
}

// The pieces between two that routines write, which are taken for whole lines.
void checkRun(const WrittenOutput& output, std::size_t begin, std::size_t end, Reported& reported,
              Findings& findings) {
  JoinedText joined;
  std::vector<std::size_t> offsets;
  for (std::size_t i = begin; i < end; ++i) {
    offsets.push_back(joined.text().size());
    joined.add(output.pieces[i]);
  }
  for (std::size_t i = begin; i < end; ++i) {
    checkEmptyValue(output.pieces[i], joined.text(), offsets[i - begin], findings);
  }
  PjlReader reader(joined, {}, reported, findings);
  reader.readAll();
  for (const WrittenList& list : output.lists) {
    if (list.begin < begin || list.begin >= end) continue;
    // A list that goes on a line of others is not a line of its own.
    const auto state = reader.states().find(offsets[list.begin - begin]);
    if (state != reader.states().end()) checkOptions(list, state->second, reported, findings);
  }
}

}  // namespace

void checkPjlLines(const host::Element& description, Findings& findings) {
  const WrittenOutput output = writeOutput(description, kPjlOutput);
  Reported reported;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= output.pieces.size(); ++i) {
    const bool isRoutine = i < output.pieces.size() && output.pieces[i].attribute == nullptr;
    if (i < output.pieces.size() && !isRoutine) continue;
    checkRun(output, begin, i, reported, findings);
    begin = i + 1;
  }
}

}  // namespace driver_feature::check

// Reads PostScript piece by piece, as a printer would, and notes what cannot be
// intended: unmatched brackets, comments and tokens that run on into the next
// command, structure comments with one per cent sign.
#ifndef HOST_CHECK_POSTSCRIPT_SCAN_H_
#define HOST_CHECK_POSTSCRIPT_SCAN_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/check/written_output.h"

namespace driver_feature::check {

// A character of a piece, which must outlive it.
struct Spot {
  const Piece* piece = nullptr;
  std::size_t index = 0;

  host::Position position() const { return piece->place(index); }
  bool operator==(const Spot&) const = default;
};

struct Fault {
  enum class Kind : unsigned char {
    kUnopened,       // `text` at `spot` closes nothing.
    kUnclosed,       // `text` at `spot` is not closed before its procedure ends.
    kWrongPair,      // `text` at `spot` closes the `other` of `partner`.
    kOpenComment,    // The comment at `spot` swallows what comes after its command.
    kJoinedTokens,   // The command that ends at `spot` runs on as `text`.
    kSinglePerCent,  // The structure comment `text` at `spot` has one sign.
  };
  Kind kind = Kind::kUnopened;
  Spot spot;
  std::string text;
  Spot partner;
  std::string other;
};

class PostScriptScan {
 public:
  struct Open {
    std::string bracket;
    Spot spot;
  };

  // The pieces of a command that a routine writes, or that holds data, may open
  // and close anything.
  void read(const Piece& piece);

  // What is open: brackets, and the string or comment that the last piece ends
  // in.
  const std::vector<Open>& open() const { return open_; }
  bool isInComment() const { return place_ == Place::kComment; }
  const std::vector<Fault>& faults() const { return faults_; }
  std::vector<Fault> takeFaults() { return std::exchange(faults_, {}); }

  // Notes what the end of the output leaves unfinished, but for brackets.
  void finish();

 private:
  enum class Place : unsigned char { kOutside, kString, kHexString, kBase85, kComment, kData };

  void enterUnit(const Piece& piece);
  void forget();
  void readCharacter(char character, Spot spot);
  void readOutside(char character, Spot spot);
  void readInString(char character);
  void readInHexString(char character);
  void readAngle(char character, Spot spot);
  void endHalfAngle();
  void endToken();
  void begin(const char* bracket, Spot spot);
  void endList(const char* opening, const char* closing, Spot spot);
  void endProcedure(Spot spot);
  void closeMark();
  void endComment();

  Place place_ = Place::kOutside;
  std::vector<Open> open_;
  bool isUnknownBelow_ = false;  // Whether something unread may have opened what is closed.
  bool isEscaped_ = false;
  int depth_ = 0;             // Of parentheses in a string.
  int procedures_ = 0;        // That are open.
  bool isHalfAngle_ = false;  // Whether a ">" may be the first of two.
  char previous_ = 0;         // 0 at the beginning, and where something unread ends.
  std::string token_;
  Spot last_;     // The last character.
  Spot comment_;  // Where a comment begins.
  std::string commentText_;
  bool commentBeginsLine_ = false;
  const host::Element* unit_ = nullptr;
  bool isAfterHead_ = false;
  std::vector<Fault> faults_;
};

}  // namespace driver_feature::check

#endif  // HOST_CHECK_POSTSCRIPT_SCAN_H_

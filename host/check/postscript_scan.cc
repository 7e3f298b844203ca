#include "host/check/postscript_scan.h"

#include <algorithm>
#include <utility>

#include "host/check/structure_comment.h"

namespace driver_feature::check {

namespace {

constexpr const char* kMarkOperator = "mark";
constexpr std::string_view kPostScriptBlanks(" \t\r\n\f\0", 6);
constexpr std::string_view kDelimiters = "()<>[]{}/%";

bool isIn(std::string_view set, char character) {
  return set.find(character) != std::string_view::npos;
}

bool isRegular(char character) {
  return !isIn(kPostScriptBlanks, character) && !isIn(kDelimiters, character);
}

bool isLineEnd(char character) {
  return character == '\n' || character == '\r' || character == '\f';
}

// What is not text begins a binary token.
bool isBinary(char character) {
  return static_cast<unsigned char>(character) >= 0x80;
}

}  // namespace

void PostScriptScan::read(const Piece& piece) {
  if (piece.attribute == nullptr) {
    forget();
    unit_ = piece.unit;
    return;
  }
  if (piece.text.empty()) return;
  if (piece.unit != unit_) enterUnit(piece);
  isAfterHead_ = piece.isHead;
  for (std::size_t i = 0; i < piece.text.size(); ++i) readCharacter(piece.text[i], {&piece, i});
}

// Another command begins right after the last one.
void PostScriptScan::enterUnit(const Piece& piece) {
  unit_ = piece.unit;
  if (place_ == Place::kData) forget();
  const char first = piece.text.front();
  if (place_ == Place::kComment && !isLineEnd(first)) {
    faults_.push_back({Fault::Kind::kOpenComment, comment_, "", {}, ""});
    endComment();
    previous_ = '\n';
  }
  if (place_ != Place::kOutside || isAfterHead_ || token_.empty() || !isRegular(first)) return;
  const std::size_t end =
      std::min(piece.text.find_first_of(std::string(kPostScriptBlanks) + std::string(kDelimiters)),
               piece.text.size());
  faults_.push_back(
      {Fault::Kind::kJoinedTokens, last_, token_ + piece.text.substr(0, end), {&piece, 0}, ""});
}

// After something unread, anything may be open.
void PostScriptScan::forget() {
  place_ = Place::kOutside;
  open_.clear();
  procedures_ = 0;
  isUnknownBelow_ = true;
  token_.clear();
  previous_ = 0;
}

void PostScriptScan::readCharacter(char character, Spot spot) {
  switch (place_) {
    case Place::kString:
      readInString(character);
      break;
    case Place::kHexString:
      readInHexString(character);
      break;
    case Place::kBase85:
      if (previous_ == '~' && character == '>') place_ = Place::kOutside;
      break;
    case Place::kComment:
      if (isLineEnd(character)) {
        endComment();
      } else {
        commentText_ += character;
      }
      break;
    case Place::kData:
      break;
    default:
      readOutside(character, spot);
      break;
  }
  previous_ = character;
  last_ = spot;
}

void PostScriptScan::readOutside(char character, Spot spot) {
  if (character != '>') endHalfAngle();
  if (isBinary(character)) {
    place_ = Place::kData;
    return;
  }
  if (isRegular(character)) {
    token_ += character;
    return;
  }
  endToken();
  if (place_ != Place::kOutside) return;
  switch (character) {
    case '%':
      place_ = Place::kComment;
      comment_ = spot;
      commentText_ = "%";
      commentBeginsLine_ = previous_ == 0 || isLineEnd(previous_);
      return;
    case '(':
      place_ = Place::kString;
      depth_ = 1;
      return begin("(", spot);
    case ')':
      if (open_.empty() && isUnknownBelow_) return;
      return faults_.push_back({Fault::Kind::kUnopened, spot, ")", {}, ""});
    case '[':
      return begin("[", spot);
    case ']':
      return endList("[", "]", spot);
    case '{':
      return begin("{", spot);
    case '}':
      return endProcedure(spot);
    case '/':
      token_ = "/";
      return;
    case '<':
    case '>':
      return readAngle(character, spot);
    default:
      return;
  }
}

// The first of two angle brackets has turned out to be the only one.
void PostScriptScan::endHalfAngle() {
  if (!std::exchange(isHalfAngle_, false)) return;
  faults_.push_back({Fault::Kind::kUnopened, last_, ">", {}, ""});
}

// One angle bracket begins a string in hexadecimal digits; two begin or end a
// dictionary.
void PostScriptScan::readAngle(char character, Spot spot) {
  if (character == '<') {
    place_ = Place::kHexString;
    return begin("<", spot);
  }
  isHalfAngle_ = !isHalfAngle_;
  if (!isHalfAngle_) endList("<<", ">>", last_);
}

void PostScriptScan::readInString(char character) {
  if (isEscaped_) {
    isEscaped_ = false;
    return;
  }
  if (character == '\\') isEscaped_ = true;
  if (character == '(') ++depth_;
  if (character != ')' || --depth_ > 0) return;
  place_ = Place::kOutside;
  open_.pop_back();
}

void PostScriptScan::readInHexString(char character) {
  const bool isFirst = previous_ == '<' && last_ == open_.back().spot;
  if (isFirst && character == '<') {
    place_ = Place::kOutside;
    open_.back().bracket = "<<";
  } else if (isFirst && character == '~') {
    place_ = Place::kBase85;
    open_.pop_back();
  } else if (character == '>') {
    place_ = Place::kOutside;
    open_.pop_back();
  }
}

void PostScriptScan::endToken() {
  const std::string token = std::exchange(token_, "");
  if (token == "currentfile") {
    place_ = Place::kData;
  } else if (token == kMarkOperator) {
    begin(kMarkOperator, last_);
  } else if (token == "cleartomark" || token == "pdfmark") {
    closeMark();
  }
}

void PostScriptScan::begin(const char* bracket, Spot spot) {
  open_.push_back({bracket, spot});
  if (*bracket == '{') ++procedures_;
}

// The end of a list or dictionary. What begins one of the two is a mark itself.
void PostScriptScan::endList(const char* opening, const char* closing, Spot spot) {
  if (open_.empty() || open_.back().bracket == "{") {
    if (open_.empty() && isUnknownBelow_) return;
    faults_.push_back({Fault::Kind::kUnopened, spot, closing, {}, ""});
    return;
  }
  const Open last = open_.back();
  open_.pop_back();
  if (last.bracket == opening || last.bracket == kMarkOperator) return;
  faults_.push_back({Fault::Kind::kWrongPair, spot, closing, last.spot, last.bracket});
}

// The lists and dictionaries that a procedure leaves open end with it.
void PostScriptScan::endProcedure(Spot spot) {
  if (procedures_ == 0) {
    if (!isUnknownBelow_) faults_.push_back({Fault::Kind::kUnopened, spot, "}", {}, ""});
    return;
  }
  for (; open_.back().bracket != "{"; open_.pop_back()) {
    if (open_.back().bracket == kMarkOperator) continue;
    faults_.push_back({Fault::Kind::kUnclosed, open_.back().spot, open_.back().bracket, {}, ""});
  }
  open_.pop_back();
  --procedures_;
}

// Takes everything off the stack down to the last mark of this procedure.
void PostScriptScan::closeMark() {
  while (!open_.empty() && open_.back().bracket != "{") {
    const std::string& last = open_.back().bracket;
    const bool isMark = last == "[" || last == "<<" || last == kMarkOperator;
    open_.pop_back();
    if (isMark) return;
  }
}

void PostScriptScan::endComment() {
  place_ = Place::kOutside;
  if (commentText_.starts_with("%%BeginData") || commentText_.starts_with("%%BeginBinary")) {
    place_ = Place::kData;
  }
  if (commentBeginsLine_ && isStructureComment(commentText_)) {
    faults_.push_back({Fault::Kind::kSinglePerCent, comment_, commentText_, {}, ""});
  }
}

void PostScriptScan::finish() {
  endHalfAngle();
  if (place_ != Place::kComment) return;
  faults_.push_back({Fault::Kind::kOpenComment, comment_, "", {}, ""});
  endComment();
}

}  // namespace driver_feature::check

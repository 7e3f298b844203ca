// Cuts a stream of bytes into lines, whatever its pieces are.
//
// A line ends with LF, CR or CR LF. Lines may be of any length and hold any
// byte: of a line longer than kLongestLine only the beginning is kept until it
// is passed on, so that the memory needed does not grow with the line.
#ifndef PROGRAMS_FILTER_LINE_CUTTER_H_
#define PROGRAMS_FILTER_LINE_CUTTER_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace driver_feature::filter {

// Far more than the 255 characters that structure comments may have.
inline constexpr std::size_t kLongestLine = 1024;

struct JobLine {
  std::string_view text;
  std::string_view end;  // Its line end; empty for the last line, and for a beginning.
  bool isWhole = true;   // False for the beginning of a long line.
};

class LineListener {
 public:
  // A line, or the beginning of a long one. May call passOn().
  virtual void takeLine(const JobLine& line) = 0;

  // Bytes that are not lines: what follows the beginning of a long line, its
  // line end included, and what passOn() asked for.
  virtual void takeBytes(std::string_view bytes) = 0;

 protected:
  ~LineListener() = default;
};

// Where the next one of a byte is. A place is kept until it has been passed, so
// each byte of a piece is examined once, however many lines end with another
// byte.
class NextByte {
 public:
  explicit NextByte(char byte) : byte_(byte) {}

  // Forgets the piece of the last find().
  void reset() { found_ = nullptr; }

  // The first one in the bytes; their end without one. All calls since reset()
  // must be for the same piece, each from the same place or a later one.
  const char* find(std::string_view bytes) {
    if (found_ != nullptr && found_ >= bytes.data()) return found_;
    const char* end = bytes.data() + bytes.size();
    const void* found = std::memchr(bytes.data(), byte_, bytes.size());
    found_ = found != nullptr ? static_cast<const char*>(found) : end;
    return found_;
  }

 private:
  char byte_;
  const char* found_ = nullptr;
};

class LineCutter {
 public:
  // The listener must outlive the cutter.
  explicit LineCutter(LineListener& listener) : listener_(listener) {}

  void take(std::string_view bytes);

  // Passes on what is left: a last line without a line end.
  void finish();

  // The next `count` bytes after the current line are not lines.
  void passOn(std::uint64_t count) { passing_ = count; }

 private:
  void takeLineBytes(std::string_view& bytes);
  void passBeginning(std::string_view rest);
  void endLine(std::string_view text, std::string_view end);

  LineListener& listener_;
  NextByte nextCr_{'\r'};
  NextByte nextLf_{'\n'};
  std::string held_;           // A line that has not ended yet.
  bool isLong_ = false;        // The beginning of this line has been passed on.
  bool endsWithCr_ = false;    // A line feed may still belong to its end.
  bool hasBareCr_ = false;     // Lines of this stream end with CR alone.
  std::uint64_t passing_ = 0;  // Bytes still to pass on.
};

}  // namespace driver_feature::filter

#endif  // PROGRAMS_FILTER_LINE_CUTTER_H_

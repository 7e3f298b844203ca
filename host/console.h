// What the program says on its three standard streams.
#ifndef HOST_CONSOLE_H_
#define HOST_CONSOLE_H_

#include <string>
#include <string_view>

namespace driver_feature {

// Statuses with which the program ends.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;   // The description could not be loaded, or output not written.
inline constexpr int kUnusable = 2;  // Wrong usage, an unusable input or a refused setting.

// Writes "driver-feature: TEXT" and a line end to standard error. Control
// characters of the text are spelled out, so that it stays on one line.
void complain(std::string_view text);

// Writes `start` in front of complaints from now on, in place of
// "driver-feature: ". It must live as long as the process.
void nameComplaints(std::string_view start);

// The same as complain() for a lack of memory; takes none itself.
void complainOfMemory();

// Puts something in the place of each standard stream that the caller has
// closed, so that no file opened later is taken for one of them. A write to a
// closed standard output still fails. Also makes a write to a broken pipe, or
// beyond the largest file allowed, fail instead of ending the process.
void prepareStandardStreams();

// While it lives, what anybody writes to standard output goes to standard
// error: the library and the routines of a description may print, and their
// lines must not get between the bytes of a result.
class StandardOutputDiversion {
 public:
  StandardOutputDiversion();
  ~StandardOutputDiversion();
  StandardOutputDiversion(const StandardOutputDiversion&) = delete;
  StandardOutputDiversion& operator=(const StandardOutputDiversion&) = delete;

 private:
  int saved_;  // A duplicate of standard output; -1 when it could not be made.
};

}  // namespace driver_feature

#endif  // HOST_CONSOLE_H_

// The standard streams of a program that loads foreign code.
#ifndef HOST_BASE_STANDARD_STREAMS_H_
#define HOST_BASE_STANDARD_STREAMS_H_

namespace driver_feature::host {

// Opens a replacement for each standard stream that the caller has closed, so
// that no file opened later is taken for one of them. A write to a closed
// standard output still fails. Also makes a write to a broken pipe, or beyond
// the largest file allowed, fail instead of ending the process.
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

}  // namespace driver_feature::host

#endif  // HOST_BASE_STANDARD_STREAMS_H_

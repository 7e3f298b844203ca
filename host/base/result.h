// What an operation returns that can fail: its value, or the problem.
//
//   Result<Settings> settings = readSettings(path);
//   if (!settings) return tl::unexpected(settings.error());
//   apply(*settings);
//
// A function that returns a Result neither prints nor ends the process: the
// program decides what to do about a problem.
#ifndef HOST_BASE_RESULT_H_
#define HOST_BASE_RESULT_H_

#include <string>
#include <utility>
#include <vector>

#include <tl/expected.hpp>

#include "host/base/position.h"

namespace driver_feature::host {

struct Problem {
  enum class Kind : unsigned char {
    kRefused,        // A name, a value or an order that is not accepted.
    kUnreadable,     // A file cannot be read.
    kMalformed,      // A file's text does not have the required form.
    kNoDescription,  // An XML document without a feature description.
    kNotLoaded,      // A library or a description cannot be loaded.
    kNotWritten,     // A result cannot be written.
    kDifferent,      // The result is not the expected one.
  };

  Kind kind = Kind::kRefused;
  std::string text;        // What is wrong, and after a semicolon what to do.
  std::string remedy;      // What to do, if `text` does not say so.
  std::string cause = {};  // In a few words, the same for similar problems; may be empty.
  std::string file = {};
  Position position = {};  // In the file.
  // Further problems of the same operation, in the order of their places.
  std::vector<Problem> more = {};
};

template <class Value = void>
using Result = tl::expected<Value, Problem>;
using Failure = tl::unexpected<Problem>;
using Problems = std::vector<Problem>;

// The failure of an operation for which `text` is the reason.
inline Failure fail(Problem::Kind kind, std::string text) {
  return Failure(Problem{kind, std::move(text), ""});
}

inline Failure refused(std::string text) {
  return fail(Problem::Kind::kRefused, std::move(text));
}

// The failure of another operation, passed on; with the subject put before its
// text.
template <class Value>
Failure failureOf(Result<Value>& result) {
  return Failure(std::move(result.error()));
}
template <class Value>
Failure failureOf(Result<Value>& result, const std::string& about) {
  result.error().text.insert(0, about + ": ");
  return failureOf(result);
}

// Several problems as the failure of one operation. There must be at least one.
Failure failureOfAll(Problems problems);

// "FILE:LINE:COLUMN: TEXT; REMEDY", without what is not known. The problems
// that come with it are left out.
std::string describe(const Problem& problem);

}  // namespace driver_feature::host

#endif  // HOST_BASE_RESULT_H_

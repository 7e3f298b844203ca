// The parts of a PPD file that have no place in a description. Nothing is left
// out silently: code that leaves something out notes it here.
#ifndef HOST_PPD_IMPORT_LOSSES_H_
#define HOST_PPD_IMPORT_LOSSES_H_

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace driver_feature::ppd {

enum class LossKind : unsigned char {
  kOption,      // An option, or a part of one.
  kConstraint,  // A rule that two choices must not meet.
  kText,        // What the user interface shows.
  kKeyword,     // Any other keyword of the file.
};

class Losses {
 public:
  // `what` names the thing as the file does, and says why if that is not
  // obvious. Each kOption loss is listed separately; of the others, equal ones
  // are counted.
  void note(LossKind kind, const std::string& what);

  // The number of things of a kind.
  long count(LossKind kind) const;

  // The losses as lines without a line end: one for every part of an option
  // and every constraint, and one each for all texts and keywords.
  std::vector<std::string> lines() const;

  // The lines of one kind.
  std::vector<std::string> lines(LossKind kind) const;

 private:
  struct Entry {
    std::string what;
    long times = 0;
  };

  // What was noted of one kind.
  struct Notes {
    std::vector<Entry> entries;                           // In the order of the first note.
    std::unordered_map<std::string, std::size_t> places;  // Of each thing among the entries.
  };

  std::string list(LossKind kind) const;

  std::map<LossKind, Notes> notes_;
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_IMPORT_LOSSES_H_

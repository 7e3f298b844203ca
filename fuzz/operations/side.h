// One of the two that carry a program out: the library, or the reference
// model. Each writes down what happens to its host, in order: results, log
// lines and calls of routines. Equal behaviour is equal events.
#ifndef FUZZ_OPERATIONS_SIDE_H_
#define FUZZ_OPERATIONS_SIDE_H_

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "fuzz/operations/program.h"

namespace driver_feature::operations {

using Record = std::map<std::string, std::string>;

// The host, as a model sees it: its log, its routines and its standard output.
struct Host {
  std::function<void(int level, const std::string& category, const std::string& text)> log;
  std::function<void()> update;
  std::function<void(int which)> change;
  std::function<int(SortRule rule, Record& first, Record& second)> sort;
  std::function<int(int mode)> load;
  std::function<void(std::string& text)> write;
  std::function<void(const std::string& text)> print;
};

class Side {
 public:
  explicit Side(const Program& program) : program_(program) {}
  virtual ~Side() = default;
  Side(const Side&) = delete;
  Side& operator=(const Side&) = delete;

  // Carries out one operation and notes its result.
  virtual void execute(const Operation& operation) = 0;

  // This side's host.
  Host host();

  // The events since the last call, oldest first.
  std::vector<std::string> takeEvents();

 protected:
  void note(const std::string& event) { events_.push_back(event); }

 private:
  // The host's routines. They note their call and run their scripts.
  void runUpdateRoutine();
  void runChangeRoutine(int which);
  int runSortRoutine(SortRule rule, Record& first, Record& second);
  int runLoadRoutine(int mode);
  void runTextRoutine(std::string& text);
  void runScript(Routine routine);

  const Program& program_;
  std::vector<std::string> events_;
  int depth_ = 0;
  int runs_ = 0;
  unsigned random_ = 1;
};

// How values and results look among the events.
std::string quoted(const std::string& text);
std::string shown(bool value);
std::string shown(int value);
std::string shown(float value);  // Its bits, or "nan".

}  // namespace driver_feature::operations

#endif  // FUZZ_OPERATIONS_SIDE_H_

// Runs the command "queue", and the filter with the PPD that it has written.
#ifndef TESTS_PRINTING_QUEUE_FIXTURE_H_
#define TESTS_PRINTING_QUEUE_FIXTURE_H_

#include <functional>
#include <string>
#include <vector>

#include "printing/filter_fixture.h"

class QueueCommandTest : public FilterTest {
 protected:
  RunResult queue(std::vector<std::string> arguments,
                  const std::function<void()>& prepare = {}) const;

  // Writes "queue.ppd" for the description, which must lose nothing, and has the
  // filter use it.
  void makeQueue(const std::string& description);

  // The file's absolute path.
  std::string path(const std::string& name) const;

  // The text of a queue's PPD without its stamp, which must be its second line: a
  // number made of all lines, among which is the name of the test's folder.
  static std::string withoutStamp(const std::string& ppd);

  // The lines of a queue after the first one.
  std::string lines(const std::string& description, const std::string& refused) const;
};

#endif  // TESTS_PRINTING_QUEUE_FIXTURE_H_

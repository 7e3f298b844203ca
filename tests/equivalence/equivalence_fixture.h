// Runs ppd_equivalence on a small PPD, with faults planted in a description of
// it that was written by hand.
#ifndef TESTS_EQUIVALENCE_EQUIVALENCE_FIXTURE_H_
#define TESTS_EQUIVALENCE_EQUIVALENCE_FIXTURE_H_

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

#include "host/program_runner.h"

class PpdEquivalenceTest : public ProgramTest {
 protected:
  PpdEquivalenceTest();

  // Replaces the first `old` of the description; it must be there.
  void plant(const std::string& old, const std::string& text);

  void swapDuplexAndPageSize();

  // Adds a feature that calls the routine when PostScript is written.
  void plantRoutine(const std::string& routine);

  // Compares with 40 random vectors.
  RunResult compare(std::vector<std::string> arguments = {});

  // Compares, and ends the program as soon as a routine hangs.
  void compareAndInterrupt();

  // The first record of the last run.
  nlohmann::json record() const;

  // Compares and expects one cause, and its only difference.
  void expectDifference(const std::string& part, long offset, const std::string& peer,
                        const std::string& ours);

  // Compares, expects one cause and returns its detail.
  std::string expectFailure(const std::string& cause,
                            const std::vector<std::string>& arguments = {});

  // Whether the process that a routine has left running is gone, or goes within
  // some seconds: a process that is ended takes its time.
  bool hangingProcessIsGone() const;

  std::string description_;
};

#endif  // TESTS_EQUIVALENCE_EQUIVALENCE_FIXTURE_H_

// Runs PostScript in Ghostscript.
#ifndef TESTS_GOLDEN_GHOSTSCRIPT_H_
#define TESTS_GOLDEN_GHOSTSCRIPT_H_

#include <string>
#include <vector>

#include "host/program_runner.h"

struct PostScriptCase {
  std::string label;
  std::string code;
};

// A folder in which the PostScript of a test is put and run.
class GhostscriptTest : public ProgramTest {
 protected:
  // Runs each case on its own, then prints an empty page, all in one process
  // of Ghostscript. Returns a line for each case that ends in an error, stops
  // itself, or leaves something on one of the stacks; a case that ends the
  // process takes the rest with it, which is a line, too. Empty when all is
  // well.
  std::string findFaults(const std::vector<PostScriptCase>& cases) const;

  // What `code` prints.
  RunResult print(const std::string& code) const;

  // Runs `code`, then prints an empty page, and returns the corners of what was
  // painted, as Ghostscript writes them: "0 0 0 0" for nothing.
  std::string findPaintedBox(const std::string& code) const;

 private:
  RunResult runGhostscript(const std::string& device, const std::string& file) const;
};

#endif  // TESTS_GOLDEN_GHOSTSCRIPT_H_

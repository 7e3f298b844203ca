// Writes the manual page when the project is built.
//
// usage: write_manual TEXT PAGE VERSION

#include <fstream>
#include <iostream>
#include <iterator>

#include "host/command_line.h"
#include "host/manual/manual_page.h"

namespace {

int fail(const std::string& problem) {
  std::cerr << "write_manual: " << problem << "\n";
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return fail("usage: write_manual TEXT PAGE VERSION");
  std::ifstream input(argv[1]);
  if (!input) return fail(std::string("cannot read ") + argv[1]);
  std::string page{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};

  std::map<std::string, std::string> parts;
  driver_feature::readCommandLine(
      [&parts](const CLI::App& program) { parts = driver_feature::manualParts(program); });
  parts["VERSION"] = argv[3];
  std::string problem;
  if (!driver_feature::fillMarks(page, parts, problem)) {
    return fail(std::string(argv[1]) + ": " + problem);
  }

  std::ofstream output(argv[2]);
  output << page;
  output.close();
  return output ? 0 : fail(std::string("cannot write ") + argv[2]);
}

// Writes the manual page when the project is built.
//
// usage: write_manual TEXT PAGE VERSION

#include <fstream>
#include <iostream>
#include <iterator>

#include "programs/driver_feature/command_line.h"
#include "programs/driver_feature/manual/manual_page.h"

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
  const std::string page{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};

  auto parts = driver_feature::cli::manualParts(driver_feature::cli::programRows());
  parts["VERSION"] = argv[3];
  const auto filled = driver_feature::cli::fillMarks(page, parts);
  if (!filled) return fail(std::string(argv[1]) + ": " + filled.error().text);

  std::ofstream output(argv[2]);
  output << *filled;
  output.close();
  return output ? 0 : fail(std::string("cannot write ") + argv[2]);
}

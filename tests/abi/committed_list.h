// A list in a file of the project that the library is compared with.
#ifndef TESTS_ABI_COMMITTED_LIST_H_
#define TESTS_ABI_COMMITTED_LIST_H_

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace driver_feature::testing {

// The lines of a list. The test fails when the file is missing or empty.
inline std::vector<std::string> readList(const char* path) {
  std::ifstream file(path);
  EXPECT_TRUE(file.is_open()) << path;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  EXPECT_FALSE(lines.empty()) << path;
  return lines;
}

}  // namespace driver_feature::testing

#endif  // TESTS_ABI_COMMITTED_LIST_H_

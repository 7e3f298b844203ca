#include "host_interface_doc/markdown.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace driver_feature::testing {

namespace {

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Row cellsOf(const std::string& line) {
  Row row;
  std::istringstream cells(line.substr(1));
  for (std::string cell; std::getline(cells, cell, '|');) row.push_back(trimmed(cell));
  return row;
}

bool isRow(const std::string& line) {
  return line.starts_with('|');
}

}  // namespace

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string readPage(const std::string& name) {
  return readFile(std::string(DOCS_FOLDER) + '/' + name);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> found;
  std::istringstream stream(text);
  for (std::string each; std::getline(stream, each);) found.push_back(each);
  return found;
}

std::string sectionOf(const std::string& page, const std::string& title) {
  std::string section;
  bool inside = false;
  for (const std::string& line : linesOf(page)) {
    if (line.starts_with("## ")) {
      inside = line == "## " + title;
    } else if (inside) {
      section += line + '\n';
    }
  }
  return section;
}

std::vector<Row> firstTableOf(const std::string& text) {
  std::vector<Row> rows;
  bool inside = false;
  for (const std::string& line : linesOf(text)) {
    if (inside && !isRow(line)) break;
    if (!isRow(line)) continue;
    inside = true;
    rows.push_back(cellsOf(line));
  }
  constexpr std::size_t kHeadRows = 2;  // The titles, and the line below them.
  if (rows.size() < kHeadRows) return {};
  rows.erase(rows.begin(), rows.begin() + kHeadRows);
  return rows;
}

}  // namespace driver_feature::testing

// Pages of the documentation, as far as the tests here read them.
#ifndef TESTS_HOST_INTERFACE_DOC_MARKDOWN_H_
#define TESTS_HOST_INTERFACE_DOC_MARKDOWN_H_

#include <string>
#include <vector>

namespace driver_feature::testing {

using Row = std::vector<std::string>;  // The cells of a table's row, trimmed.

// A file's text; the running test fails when it cannot be read.
std::string readFile(const std::string& path);
std::string readPage(const std::string& name);

// The text below the heading `title` of the second level, up to the next
// of that level. Empty when there is no such heading.
std::string sectionOf(const std::string& page, const std::string& title);

// The rows of the first table in `text`, without its head.
std::vector<Row> firstTableOf(const std::string& text);

std::vector<std::string> linesOf(const std::string& text);

}  // namespace driver_feature::testing

#endif  // TESTS_HOST_INTERFACE_DOC_MARKDOWN_H_

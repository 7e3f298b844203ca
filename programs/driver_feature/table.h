// Text tables.
#ifndef PROGRAMS_DRIVER_FEATURE_TABLE_H_
#define PROGRAMS_DRIVER_FEATURE_TABLE_H_

#include <cstddef>
#include <string>
#include <vector>

namespace driver_feature::cli {

// One row: a text for every column but the last, and the parts of the last
// column, between which its line may be broken.
struct TableRow {
  std::vector<std::string> cells;
  std::vector<std::string> parts;
};

// Lays out the rows with aligned columns, two blanks between them and ", "
// between parts. Every text is made printable. With a width of 0 each row is
// one line, however long. With any other width the last column is continued
// on further lines so that it stays within the width, and a cell that takes
// more than a third of it is cut, with "..." at the end.
std::string layOut(const std::vector<TableRow>& rows, std::size_t width);

}  // namespace driver_feature::cli

#endif  // PROGRAMS_DRIVER_FEATURE_TABLE_H_

#include "programs/driver_feature/table.h"

#include <algorithm>
#include <string_view>

#include "host/base/text.h"

namespace driver_feature::cli {

namespace {

constexpr std::size_t kColumnGap = 2;
constexpr std::string_view kEllipsis = "...";
// A narrower last column would be all line breaks: the terminal may wrap it.
constexpr std::size_t kNarrowest = 16;

std::string cut(const std::string& text, std::size_t width) {
  if (host::displayWidth(text) <= width) return text;
  std::string kept;
  for (const std::string_view character : host::splitCharacters(text)) {
    const std::string longer = kept + std::string(character);
    if (host::displayWidth(longer) + kEllipsis.size() > width) break;
    kept = longer;
  }
  return kept + std::string(kEllipsis);
}

class Layout {
 public:
  Layout(const std::vector<TableRow>& rows, std::size_t width) : width_(width) {
    for (const TableRow& row : rows) {
      columns_.resize(std::max(columns_.size(), row.cells.size()));
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        columns_[i] = std::max(columns_[i], host::displayWidth(shown(row.cells[i])));
      }
    }
    for (const std::size_t column : columns_) indent_ += column + kColumnGap;
  }

  std::string compose(const TableRow& row) const {
    std::string line;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const std::string cell = shown(row.cells[i]);
      line += cell + std::string(columns_[i] + kColumnGap - host::displayWidth(cell), ' ');
    }
    line += composeParts(row.parts);
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
  }

 private:
  std::string shown(const std::string& cell) const {
    const std::string text = host::printable(cell);
    return width_ == 0 ? text : cut(text, std::max(width_ / 3, kEllipsis.size()));
  }

  std::string composeParts(const std::vector<std::string>& parts) const {
    const bool wraps = width_ >= indent_ + kNarrowest;
    std::string text;
    std::size_t used = indent_;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      const std::string part = host::printable(parts[i]) + (i + 1 < parts.size() ? "," : "");
      const std::size_t partWidth = host::displayWidth(part);
      const bool first = used == indent_;
      if (wraps && !first && used + 1 + partWidth > width_) {
        text += "\n" + std::string(indent_, ' ');
        used = indent_;
      } else if (!first) {
        text += " ";
        ++used;
      }
      text += part;
      used += partWidth;
    }
    return text;
  }

  std::size_t width_;
  std::vector<std::size_t> columns_;
  std::size_t indent_ = 0;
};

}  // namespace

std::string layOut(const std::vector<TableRow>& rows, std::size_t width) {
  const Layout layout(rows, width);
  std::string text;
  for (const TableRow& row : rows) text += layout.compose(row);
  return text;
}

}  // namespace driver_feature::cli

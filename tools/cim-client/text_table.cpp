// Measuring and writing tables.
#include "text_table.h"

#include <algorithm>

#include "utf8.h"

namespace cli {
namespace {

constexpr std::size_t gap = 2;  // blanks between columns

}  // namespace

void TextTable::add_column(const std::string& heading, Align align) {
  const std::string shown = printable(heading);
  columns_.push_back({shown, align, display_width(shown)});
}

void TextTable::add_row(const std::vector<std::string>& cells) {
  std::vector<std::string> row;
  row.reserve(cells.size());
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    row.push_back(index < cells.size() ? printable(cells[index]) : std::string());
    columns_[index].width = std::max(columns_[index].width, display_width(row.back()));
  }
  rows_.push_back(std::move(row));
}

std::size_t TextTable::width() const {
  std::size_t total = columns_.empty() ? 0 : gap * (columns_.size() - 1);
  for (const Column& column : columns_) total += column.width;
  return total;
}

void TextTable::write(std::ostream& out) const {
  std::vector<std::string> headings;
  headings.reserve(columns_.size());
  for (const Column& column : columns_) headings.push_back(column.heading);
  write_row(out, headings);
  for (const std::vector<std::string>& row : rows_) write_row(out, row);
}

void TextTable::write_row(std::ostream& out, const std::vector<std::string>& cells) const {
  std::string line;
  std::size_t pending = 0;  // blanks owed before the next text
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    const std::size_t room = columns_[index].width - display_width(cells[index]);
    const bool right = columns_[index].align == Align::Right;
    if (!cells[index].empty()) {
      line.append(pending + (right ? room : 0), ' ').append(cells[index]);
      pending = right ? gap : room + gap;
    } else {
      pending += room + gap;
    }
  }
  out << line << '\n';
}

}  // namespace cli

// Tables with aligned columns.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace cli {

// Rows of texts under headings. The texts are made fit to show (printable()) as they come in.
class TextTable {
 public:
  enum class Align { Left, Right };

  // Adds a column; all columns come before the first row.
  void add_column(const std::string& heading, Align align = Align::Left);

  // Adds a row with one text per column.
  void add_row(const std::vector<std::string>& cells);

  // Columns of the terminal that the table takes.
  std::size_t width() const;

  // Writes headings and rows; nothing ends in blanks.
  void write(std::ostream& out) const;

 private:
  struct Column {
    std::string heading;
    Align align;
    std::size_t width;
  };

  void write_row(std::ostream& out, const std::vector<std::string>& cells) const;

  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace cli

// Aligned tables.
#include "text_table.h"

#include <gtest/gtest.h>

#include <sstream>

namespace cli {
namespace {

std::string written(const TextTable& table) {
  std::ostringstream out;
  table.write(out);
  return out.str();
}

TEST(TextTable, columns_are_aligned_and_nothing_ends_in_blanks) {
  TextTable table;
  table.add_column("DeviceID");
  table.add_column("Speed", TextTable::Align::Right);
  table.add_column("Caption");
  table.add_row({"fan1", "1200", "front"});
  table.add_row({"a longer name", "5", ""});
  EXPECT_EQ(written(table),
            "DeviceID       Speed  Caption\n"
            "fan1            1200  front\n"
            "a longer name      5\n");
  EXPECT_EQ(table.width(), 29U);
}

TEST(TextTable, wide_and_combining_characters_keep_the_columns_straight) {
  TextTable table;
  table.add_column("Name");
  table.add_column("N");
  table.add_row({"\xE6\xB8\xA9\xE5\xBA\xA6\xE8\xA8\x88", "1"});
  table.add_row(
      {"Lu\xCC\x88"
       "fter",
       "2"});
  EXPECT_EQ(written(table),
            "Name    N\n"
            "\xE6\xB8\xA9\xE5\xBA\xA6\xE8\xA8\x88  1\n"
            "Lu\xCC\x88"
            "fter  2\n");
}

TEST(TextTable, a_line_break_in_a_cell_does_not_break_the_row) {
  TextTable table;
  table.add_column("A");
  table.add_row({"x\ny"});
  EXPECT_EQ(written(table), "A\nx\\ny\n");
}

TEST(TextTable, missing_cells_are_empty) {
  TextTable table;
  table.add_column("A");
  table.add_column("B");
  table.add_row({"x"});
  EXPECT_EQ(written(table), "A  B\nx\n");
}

TEST(TextTable, without_columns_there_is_an_empty_line) {
  EXPECT_EQ(written(TextTable()), "\n");
  EXPECT_EQ(TextTable().width(), 0U);
}

}  // namespace
}  // namespace cli

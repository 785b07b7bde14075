// Trace lines in a program that has put its own function in the place of EmptyPrintf.
#include "base/trace.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "cim_client.h"

namespace {

std::vector<std::string> lines;

}  // namespace

extern "C" [[gnu::visibility("default")]] int EmptyPrintf(const char* format, ...) {
  std::array<char, 200> line;
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line.data(), line.size(), format, arguments);
  va_end(arguments);
  lines.emplace_back(line.data());
  return 0;
}

// The library's own, which are hidden in it.
namespace cim {
const TracePrinter trace_printer = EmptyPrintf;
const TracePrinter silent_printer = nullptr;
}  // namespace cim

namespace {

using Lines = std::vector<std::string>;

TEST(Trace, the_library_hands_its_lines_to_the_programs_function) {
  lines.clear();
  Namespace* none = nullptr;
  EXPECT_EQ(Free_CIMName(nullptr), 0);
  EXPECT_EQ(Free_Namespace(none), 0);
  EXPECT_EQ(lines, (Lines{"\n Inside Free_CIMName \n", "\n Inside Free_Namespace !!!(nil)"}));
}

TEST(Trace, formats_take_texts_numbers_and_addresses) {
  lines.clear();
  char text[] = "text";
  const char* constant = "constant";
  const short small = -3;
  cim::trace("plain");
  cim::trace("%s %s", text, constant);
  cim::trace("%d %d %u", -2, small, 5u);
  cim::trace("%ld %lu", -6L, 7UL);
  cim::trace("%p 100%%", static_cast<void*>(nullptr));
  EXPECT_EQ(lines, (Lines{"plain", "text constant", "-2 -3 5", "-6 7", "(nil) 100%"}));
}

TEST(Trace, a_line_known_at_run_time_is_handed_on_as_it_is) {
  lines.clear();
  const std::string line = "line";
  cim::trace_line(line.c_str());
  EXPECT_EQ(lines, Lines{"line"});
}

TEST(Trace, is_traced_says_that_the_function_was_replaced) { EXPECT_TRUE(cim::is_traced()); }

}  // namespace

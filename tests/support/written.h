// What the writer makes of a record.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace support {

// A literal as records hold texts.  For records that are only read.
inline char* text(const char* literal) { return const_cast<char*>(literal); }

// The text that `generate` makes when it is given none; "(null)" when it makes none either.
template <class R>
std::string written(int (*generate)(R*, char**), R* record) {
  char* output = nullptr;
  EXPECT_EQ(generate(record, &output), 0);
  std::string result = output ? output : "(null)";
  std::free(output);
  return result;
}

}  // namespace support

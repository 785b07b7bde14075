// The texts of CIM date-times and intervals.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "cim_client.h"

namespace {

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

std::string text_of(const CIMDateTime& value, const char* before = "") {
  std::array<char, 256> text;
  text.fill('#');
  std::strcpy(text.data(), before);
  EXPECT_EQ(CIMC_ConvertDateTimeToString(&value, text.data()), 0);
  EXPECT_EQ(text[std::strlen(text.data()) + 1], '#');
  return text.data();
}

std::string text_of(const CIMInterval& value, const char* before = "") {
  std::array<char, 256> text;
  text.fill('#');
  std::strcpy(text.data(), before);
  EXPECT_EQ(CIMC_ConvertIntervalToString(&value, text.data()), 0);
  EXPECT_EQ(text[std::strlen(text.data()) + 1], '#');
  return text.data();
}

TEST(CIMC_ConvertDateTimeToString, gives_25_characters) {
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 0, 60}), "20240131235959.000000+060");
}

TEST(CIMC_ConvertDateTimeToString, fills_up_with_zeros) {
  EXPECT_EQ(text_of(CIMDateTime{5, 1, 2, 3, 4, 5, 0, 0}), "00050102030405.000000+000");
  EXPECT_EQ(text_of(CIMDateTime{}), "00000000000000.000000+000");
}

TEST(CIMC_ConvertDateTimeToString, a_negative_offset_brings_its_own_sign) {
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 0, -300}), "20240131235959.000000-300");
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 0, -60}), "20240131235959.000000-060");
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 0, -1}), "20240131235959.000000-001");
}

TEST(CIMC_ConvertDateTimeToString, microseconds_are_written_as_0_whatever_they_are) {
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 123456, 0}), "20240131235959.000000+000");
}

TEST(CIMC_ConvertDateTimeToString, appends_to_the_text) {
  EXPECT_EQ(text_of(CIMDateTime{2024, 1, 31, 23, 59, 59, 0, 60}, "at "),
            "at 20240131235959.000000+060");
}

TEST(CIMC_ConvertDateTimeToString, numbers_out_of_range_come_out_as_they_are) {
  EXPECT_EQ(text_of(CIMDateTime{12345, 100, -1, 300, 0, 0, 0, 1000}),
            "12345100-013000000.000000+1000");
  EXPECT_EQ(text_of(CIMDateTime{smallest, smallest, smallest, smallest, smallest, smallest,
                                smallest, smallest}),
            "-2147483648-2147483648-2147483648-2147483648-2147483648-2147483648.000000"
            "-2147483648");
}

TEST(CIMC_ConvertDateTimeToString, null_arguments_are_minus_one) {
  const CIMDateTime value{};
  char text[] = "untouched";
  EXPECT_EQ(CIMC_ConvertDateTimeToString(nullptr, text), -1);
  EXPECT_EQ(CIMC_ConvertDateTimeToString(&value, nullptr), -1);
  EXPECT_STREQ(text, "untouched");
}

TEST(CIMC_ConvertIntervalToString, gives_25_characters) {
  EXPECT_EQ(text_of(CIMInterval{1, 2, 3, 4}), "00000001020304.000000:000");
  EXPECT_EQ(text_of(CIMInterval{}), "00000000000000.000000:000");
  EXPECT_EQ(text_of(CIMInterval{99999999, 23, 59, 59}), "99999999235959.000000:000");
}

TEST(CIMC_ConvertIntervalToString, appends_to_the_text) {
  EXPECT_EQ(text_of(CIMInterval{1, 2, 3, 4}, "for "), "for 00000001020304.000000:000");
}

TEST(CIMC_ConvertIntervalToString, numbers_out_of_range_come_out_as_they_are) {
  EXPECT_EQ(text_of(CIMInterval{123456789, 100, -1, -10}), "123456789100-01-10.000000:000");
  EXPECT_EQ(text_of(CIMInterval{smallest, smallest, smallest, smallest}),
            "-2147483648-2147483648-2147483648-2147483648.000000:000");
}

TEST(CIMC_ConvertIntervalToString, null_arguments_are_minus_one) {
  const CIMInterval value{};
  char text[] = "untouched";
  EXPECT_EQ(CIMC_ConvertIntervalToString(nullptr, text), -1);
  EXPECT_EQ(CIMC_ConvertIntervalToString(&value, nullptr), -1);
  EXPECT_STREQ(text, "untouched");
}

}  // namespace

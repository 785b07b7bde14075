// Values that people type, checked against CIM types.
#include "cim_types.h"

#include <gtest/gtest.h>

#include "exit_status.h"

namespace cli {
namespace {

std::string checked(const char* text, const char* type) { return checked_value(text, type, "P"); }

std::string refusal(const char* text, const char* type) {
  try {
    checked(text, type);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  return "not refused";
}

TEST(CimTypes, integers_reach_exactly_to_the_ends_of_their_types) {
  struct Row {
    const char* type;
    const char* lowest;
    const char* highest;
    const char* below;
    const char* above;
  };
  for (const Row& row : {
           Row{"uint8", "0", "255", "-1", "256"},
           Row{"uint16", "0", "65535", "-1", "65536"},
           Row{"uint32", "0", "4294967295", "-1", "4294967296"},
           Row{"uint64", "0", "18446744073709551615", "-1", "18446744073709551616"},
           Row{"sint8", "-128", "127", "-129", "128"},
           Row{"sint16", "-32768", "32767", "-32769", "32768"},
           Row{"sint32", "-2147483648", "2147483647", "-2147483649", "2147483648"},
           Row{"sint64", "-9223372036854775808", "9223372036854775807", "-9223372036854775809",
               "9223372036854775808"},
       }) {
    EXPECT_EQ(checked(row.lowest, row.type), row.lowest) << row.type;
    EXPECT_EQ(checked(row.highest, row.type), row.highest) << row.type;
    const std::string range =
        std::string("does not fit ") + row.type + " (" + row.lowest + " to " + row.highest + ")";
    EXPECT_EQ(refusal(row.below, row.type), std::string("P: \"") + row.below + "\" " + range);
    EXPECT_EQ(refusal(row.above, row.type), std::string("P: \"") + row.above + "\" " + range);
  }
}

TEST(CimTypes, integers_are_sent_in_plain_decimal) {
  EXPECT_EQ(checked("+7", "sint8"), "7");
  EXPECT_EQ(checked("-0", "uint8"), "0");
  EXPECT_EQ(checked("007", "uint8"), "7");
  EXPECT_EQ(checked("0x1F", "uint8"), "31");
  EXPECT_EQ(checked("-0x80", "sint8"), "-128");
}

TEST(CimTypes, what_is_no_integer_is_refused_in_words) {
  for (const char* text : {"", "x", "1.5", "1e3", "0x", "0xg", "--1", " 1", "1 "})
    EXPECT_EQ(refusal(text, "uint32"),
              std::string("P: \"") + text + "\" is no integer, as uint32 needs");
}

TEST(CimTypes, reals_always_have_a_point) {
  EXPECT_EQ(checked("5", "real32"), "5.0");
  EXPECT_EQ(checked("-2.5", "real64"), "-2.5");
  EXPECT_EQ(checked("1e3", "real64"), "1.0e3");
  EXPECT_EQ(checked("+1.5E-3", "real64"), "1.5E-3");
}

TEST(CimTypes, reals_beyond_their_type_are_refused) {
  EXPECT_EQ(refusal("1e39", "real32"), "P: \"1e39\" does not fit real32");
  EXPECT_EQ(refusal("1e400", "real64"), "P: \"1e400\" does not fit real64");
  EXPECT_EQ(checked("3.4e38", "real32"), "3.4e38");
  for (const char* text : {"", "nan", "inf", "1.5x", "five"})
    EXPECT_EQ(refusal(text, "real64"),
              std::string("P: \"") + text + "\" is no number, as real64 needs");
}

TEST(CimTypes, booleans_are_true_or_false_in_any_case) {
  EXPECT_EQ(checked("True", "boolean"), "TRUE");
  EXPECT_EQ(checked("false", "boolean"), "FALSE");
  EXPECT_EQ(refusal("yes", "boolean"), "P: \"yes\" is no boolean; true and false are");
}

TEST(CimTypes, char16_is_one_character_of_the_basic_plane) {
  EXPECT_EQ(checked("x", "char16"), "x");
  EXPECT_EQ(checked("\xE2\x82\xAC", "char16"), "\xE2\x82\xAC");
  EXPECT_NE(refusal("xy", "char16"), "not refused");
  EXPECT_NE(refusal("", "char16"), "not refused");
  EXPECT_NE(refusal("\xF0\x9F\x8C\xA1", "char16"), "not refused");
}

TEST(CimTypes, strings_and_unknown_types_take_everything) {
  EXPECT_EQ(checked("any <text>", "string"), "any <text>");
  EXPECT_EQ(checked("any", "novelty"), "any");
}

TEST(CimTypes, type_names_are_the_same_in_any_case) {
  EXPECT_EQ(checked("5", "UINT8"), "5");
  EXPECT_NE(refusal("256", "UInt8"), "not refused");
}

TEST(CimTypes, date_times_and_intervals_pass_in_their_own_form) {
  for (const char* text : {"20240131235959.000000+060", "20240131235959.123456-300",
                           "00000001020304.000000:000", "2024013123****.******+060"})
    EXPECT_EQ(checked(text, "datetime"), text);
}

TEST(CimTypes, iso_times_are_converted) {
  EXPECT_EQ(date_time_text("2024-01-31T23:59:59Z"), "20240131235959.000000+000");
  EXPECT_EQ(date_time_text("2024-01-31T23:59:59+01:00"), "20240131235959.000000+060");
  EXPECT_EQ(date_time_text("2024-01-31T23:59:59-05:30"), "20240131235959.000000-330");
}

TEST(CimTypes, other_times_are_refused) {
  for (const char* text :
       {"2024-01-31", "2024-01-31T23:59:59", "2024-13-31T23:59:59Z", "2024-01-31T24:00:00Z",
        "20240131235959.000000+60", "20240131235959,000000+060", "now", ""})
    EXPECT_NE(refusal(text, "datetime").find("is no date-time"), std::string::npos) << text;
}

}  // namespace
}  // namespace cli

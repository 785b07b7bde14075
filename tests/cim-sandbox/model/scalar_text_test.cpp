// Values as text, and back.
#include "model/scalar_text.h"

#include <gtest/gtest.h>

#include "model/object_path.h"

namespace sandbox {
namespace {

// The text after it was read as a value; "-" when it is none.
std::string again(std::string_view text, Type type) {
  const auto scalar = scalar_from(text, type);
  return scalar ? to_text(*scalar, type) : "-";
}

TEST(ScalarText, types_have_the_names_of_cim_xml) {
  EXPECT_EQ(name_of(Type::UInt16), "uint16");
  EXPECT_EQ(name_of(Type::DateTime), "datetime");
  EXPECT_EQ(type_named("SINT64"), Type::SInt64);
  EXPECT_EQ(type_named("reference"), Type::Reference);
  EXPECT_EQ(type_named("float"), std::nullopt);
}

TEST(ScalarText, integers_keep_to_the_limits_of_their_type) {
  EXPECT_EQ(again("255", Type::UInt8), "255");
  EXPECT_EQ(again("256", Type::UInt8), "-");
  EXPECT_EQ(again("-1", Type::UInt8), "-");
  EXPECT_EQ(again("-0", Type::UInt8), "0");
  EXPECT_EQ(again("-128", Type::SInt8), "-128");
  EXPECT_EQ(again("-129", Type::SInt8), "-");
  EXPECT_EQ(again("128", Type::SInt8), "-");
  EXPECT_EQ(again("18446744073709551615", Type::UInt64), "18446744073709551615");
  EXPECT_EQ(again("18446744073709551616", Type::UInt64), "-");
  EXPECT_EQ(again("-9223372036854775808", Type::SInt64), "-9223372036854775808");
  EXPECT_EQ(again("-9223372036854775809", Type::SInt64), "-");
}

TEST(ScalarText, integers_may_be_hexadecimal_signed_and_surrounded_by_blanks) {
  EXPECT_EQ(again(" +7\n", Type::UInt8), "7");
  EXPECT_EQ(again("0x1F", Type::UInt8), "31");
  EXPECT_EQ(again("-0Xa", Type::SInt8), "-10");
  for (const std::string_view wrong : {"", " ", "-", "+", "0x", "1 2", "1.0", "ten", "--1"}) {
    EXPECT_EQ(again(wrong, Type::SInt32), "-") << wrong;
  }
}

TEST(ScalarText, reals_print_shortest_with_a_point) {
  EXPECT_EQ(again("1", Type::Real64), "1.0");
  EXPECT_EQ(again("+0.1", Type::Real64), "0.1");
  EXPECT_EQ(again("0.1", Type::Real32), "0.1");
  EXPECT_EQ(again("1e300", Type::Real64), "1.0e+300");
  EXPECT_EQ(again("1e300", Type::Real32), "-");
  EXPECT_EQ(again("1e999", Type::Real64), "-");
  EXPECT_EQ(again("inf", Type::Real64), "-");
  EXPECT_EQ(again("nan", Type::Real64), "-");
  EXPECT_EQ(again("", Type::Real64), "-");
}

TEST(ScalarText, booleans_are_true_or_false_in_any_case) {
  EXPECT_EQ(again("true", Type::Boolean), "TRUE");
  EXPECT_EQ(again(" FALSE ", Type::Boolean), "FALSE");
  EXPECT_EQ(again("1", Type::Boolean), "-");
}

TEST(ScalarText, a_character_is_one_unit_of_16_bits) {
  EXPECT_EQ(again("\xe2\x82\xac", Type::Char16), "\xe2\x82\xac");
  EXPECT_EQ(again(" ", Type::Char16), " ");
  EXPECT_EQ(again("ab", Type::Char16), "-");
  EXPECT_EQ(again("", Type::Char16), "-");
  EXPECT_EQ(again("\xf0\x9f\x98\x80", Type::Char16), "-");
}

TEST(ScalarText, strings_keep_their_blanks) { EXPECT_EQ(again(" a ", Type::String), " a "); }

TEST(ScalarText, date_times_must_be_well_formed) {
  for (const std::string_view right :
       {"20240131235959.000000+060", "20240229120000.123456-300", "00000001020304.000000:000",
        "99999999235959.999999:000", "2024**********.******+000"}) {
    EXPECT_EQ(again(right, Type::DateTime), right);
  }
  for (const std::string_view wrong :
       {"", "2024-01-31T23:59:59", "20241331235959.000000+060", "20240132235959.000000+060",
        "20240131245959.000000+060", "20240131236059.000000+060", "20240131235960.000000+060",
        "20240131235959.000000+06", "20240131235959.000000+0600", "20240131235959,000000+060",
        "20240131235959.000000 060", "00000001020304.000000:001", "2024013123595x.000000+060",
        "00000001250304.000000:000"}) {
    EXPECT_EQ(again(wrong, Type::DateTime), "-") << wrong;
  }
}

TEST(ScalarText, a_reference_is_a_path) {
  EXPECT_EQ(again("root/a:C.Id=\"1\"", Type::Reference), "root/a:C.Id=\"1\"");
  EXPECT_EQ(again("no path", Type::Reference), "-");
}

TEST(ScalarText, null_has_no_text) { EXPECT_EQ(to_text(Scalar(), Type::String), ""); }

}  // namespace
}  // namespace sandbox

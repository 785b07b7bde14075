// Values as texts and back, and escaping, of the C++ header.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "cim_client.hpp"

namespace {

using namespace cim_client;  // NOLINT(google-build-using-namespace): as programs do

template <class T>
void expect_limits(const char* least, const char* most, const char* below, const char* above) {
  EXPECT_EQ(from_text<T>(least), std::numeric_limits<T>::min()) << least;
  EXPECT_EQ(from_text<T>(most), std::numeric_limits<T>::max()) << most;
  EXPECT_EQ(from_text<T>(below), std::nullopt) << below;
  EXPECT_EQ(from_text<T>(above), std::nullopt) << above;
  EXPECT_EQ(to_text(std::numeric_limits<T>::min()), least);
  EXPECT_EQ(to_text(std::numeric_limits<T>::max()), most);
}

TEST(Integers, of_every_width_are_held_within_their_range) {
  expect_limits<std::uint8_t>("0", "255", "-1", "256");
  expect_limits<std::int8_t>("-128", "127", "-129", "128");
  expect_limits<std::uint16_t>("0", "65535", "-1", "65536");
  expect_limits<std::int16_t>("-32768", "32767", "-32769", "32768");
  expect_limits<std::uint32_t>("0", "4294967295", "-1", "4294967296");
  expect_limits<std::int32_t>("-2147483648", "2147483647", "-2147483649", "2147483648");
  expect_limits<std::uint64_t>("0", "18446744073709551615", "-1", "18446744073709551616");
  expect_limits<std::int64_t>("-9223372036854775808", "9223372036854775807", "-9223372036854775809",
                              "9223372036854775808");
}

TEST(Integers, may_have_signs_leading_zeros_blanks_and_hexadecimal_digits) {
  EXPECT_EQ(from_text<int>("+5"), 5);
  EXPECT_EQ(from_text<int>(" 007\n"), 7);
  EXPECT_EQ(from_text<std::uint8_t>("0xfF"), 255);
  EXPECT_EQ(from_text<std::int8_t>("-0X80"), -128);
  EXPECT_EQ(from_text<unsigned>("-0"), 0U);
}

TEST(Integers, of_another_form_are_refused) {
  for (const char* text :
       {"", " ", "-", "+", "0x", "1.5", "1e3", "--1", "+-1", "5 6", "0xg", "TRUE", "1 000", "0x-1"})
    EXPECT_EQ(from_text<int>(text), std::nullopt) << text;
}

TEST(Booleans, are_read_in_any_case_and_written_in_capitals) {
  EXPECT_EQ(from_text<bool>("TRUE"), true);
  EXPECT_EQ(from_text<bool>(" false "), false);
  EXPECT_EQ(from_text<bool>("1"), std::nullopt);
  EXPECT_EQ(from_text<bool>(""), std::nullopt);
  EXPECT_EQ(to_text(true), "TRUE");
  EXPECT_EQ(to_text(false), "FALSE");
}

TEST(Reals, keep_every_bit) {
  for (const double value :
       {0.0, 0.1, 3.0, -2.5e-300, 1e20, 123456789.123456789, std::numeric_limits<double>::max(),
        std::numeric_limits<double>::min()})
    EXPECT_EQ(from_text<double>(to_text(value)), value) << to_text(value);
  EXPECT_EQ(from_text<float>(to_text(0.1F)), 0.1F);
}

TEST(Reals, always_have_a_point) {
  EXPECT_EQ(to_text(3.0), "3.0");
  EXPECT_EQ(to_text(1e20), "1.0e+20");
  EXPECT_EQ(to_text(-2.5F), "-2.5");
}

TEST(Reals, may_be_no_number_and_without_end) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(to_text(infinity), "INF");
  EXPECT_EQ(to_text(-infinity), "-INF");
  EXPECT_EQ(to_text(std::nan("")), "NAN");
  EXPECT_EQ(from_text<double>("-INF"), -infinity);
  EXPECT_TRUE(std::isnan(from_text<float>("NaN").value_or(0)));
}

TEST(Reals, of_another_form_or_too_large_are_refused) {
  for (const char* text :
       {"", ".", "e5", "1,5", "1.5x", "0x1p3", "--1", "+-1", "infinite", "1e999"})
    EXPECT_EQ(from_text<double>(text), std::nullopt) << text;
  EXPECT_EQ(from_text<float>("1e39"), std::nullopt);
}

TEST(Characters, are_single_and_of_sixteen_bits) {
  EXPECT_EQ(from_text<char16_t>("A"), u'A');
  EXPECT_EQ(from_text<char16_t>(" "), u' ');
  EXPECT_EQ(from_text<char16_t>("\u00e9"), u'\u00e9');
  EXPECT_EQ(from_text<char16_t>("\u20ac"), u'\u20ac');
  for (const char* text : {"", "AB", "\U0001F600", "\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80"})
    EXPECT_EQ(from_text<char16_t>(text), std::nullopt) << text;
  EXPECT_EQ(to_text(u'A'), "A");
  EXPECT_EQ(to_text(u'\u00e9'), "\u00e9");
  EXPECT_EQ(to_text(u'\u20ac'), "\u20ac");
}

TEST(DateTimes, are_texts_of_twenty_five_characters) {
  for (const char* text : {"20240131235959.000000+060", "20240131235959.123456-300",
                           "00000001020304.000000:000", "20240131******.******+***"}) {
    const std::optional<DateTime> value = from_text<DateTime>(text);
    ASSERT_TRUE(value) << text;
    EXPECT_EQ(value->text, text);
    EXPECT_EQ(to_text(*value), text);
  }
  for (const char* text :
       {"", "2024-01-31T23:59:59Z", "20240131235959.000000+0600", "20240131235959,000000+060",
        "00000001020304.000000:001", "2024013123595x.000000+060"})
    EXPECT_FALSE(from_text<DateTime>(text)) << text;
}

TEST(DateTimes, are_written_from_their_records) {
  const CIMDateTime noon{2024, 1, 31, 12, 0, 5, 0, -90};
  EXPECT_EQ(to_text(noon), "20240131120005.000000-090");
  const CIMInterval day{1, 2, 3, 4};
  EXPECT_EQ(to_text(day), "00000001020304.000000:000");

  Owner<Property> list;
  ASSERT_TRUE(add_property(list, "Since", noon));
  ASSERT_TRUE(add_property(list, "Every", day));
  EXPECT_STREQ(list->type, "datetime");
  EXPECT_EQ(get<std::string>(list.get()), "20240131120005.000000-090");
  EXPECT_STREQ(list->next->type, "datetime");
  EXPECT_EQ(get<DateTime>(list->next)->text, "00000001020304.000000:000");
}

TEST(Types, have_the_names_of_cim) {
  EXPECT_STREQ(cim_type<bool>(), "boolean");
  EXPECT_STREQ(cim_type<std::uint8_t>(), "uint8");
  EXPECT_STREQ(cim_type<std::int8_t>(), "sint8");
  EXPECT_STREQ(cim_type<std::uint16_t>(), "uint16");
  EXPECT_STREQ(cim_type<std::int32_t>(), "sint32");
  EXPECT_STREQ(cim_type<unsigned long long>(), "uint64");
  EXPECT_STREQ(cim_type<float>(), "real32");
  EXPECT_STREQ(cim_type<double>(), "real64");
  EXPECT_STREQ(cim_type<char16_t>(), "char16");
  EXPECT_STREQ(cim_type<DateTime>(), "datetime");
  EXPECT_STREQ(cim_type<std::string>(), "string");
}

TEST(Records, without_a_value_give_nothing) {
  EXPECT_EQ(get<int>(static_cast<const Property*>(nullptr)), std::nullopt);
  const Property null_property{};
  EXPECT_EQ(get<std::string>(&null_property), std::nullopt);
  const Value embedded{};
  EXPECT_EQ(get<std::string>(&embedded), std::nullopt);
  const NamedInstance without_instance{};
  EXPECT_EQ(get<int>(without_instance, "Speed"), std::nullopt);
  const Instance empty{};
  EXPECT_EQ(get_array<int>(empty, "Levels"), std::nullopt);
  EXPECT_EQ(get_reference(empty, "Antecedent"), nullptr);
}

TEST(Records, with_an_empty_text_give_it) {
  char text[] = "";
  Value value{};
  value.text = text;
  EXPECT_EQ(get<std::string>(&value), "");
}

TEST(Arrays, with_one_value_that_does_not_fit_give_nothing) {
  const Owner<ValueArray> array = make_array(std::initializer_list<const char*>{"1", "300"});
  EXPECT_EQ(get_array<std::uint16_t>(array.get()), (std::vector<std::uint16_t>{1, 300}));
  EXPECT_EQ(get_array<std::uint8_t>(array.get()), std::nullopt);
}

TEST(References, give_the_name_in_any_of_their_paths) {
  InstanceName name{};
  ValueReference plain{};
  plain.instanceName = &name;
  EXPECT_EQ(instance_name_of(&plain), &name);
  LocalInstancePath local_path{nullptr, &name};
  ValueReference local{};
  local.localInstancePath = &local_path;
  EXPECT_EQ(instance_name_of(&local), &name);
  InstancePath path{nullptr, &name};
  ValueReference full{};
  full.instancePath = &path;
  EXPECT_EQ(instance_name_of(&full), &name);
  EXPECT_EQ(instance_name_of(nullptr), nullptr);
}

TEST(Escape, makes_references_of_what_xml_gives_a_meaning) {
  EXPECT_EQ(escape("a < b && \"c\" > d\t\r\n"),
            "a &lt; b &amp;&amp; &quot;c&quot; &gt; d&#9;&#13;&#10;");
  EXPECT_EQ(escape("plain \u00e9"), "plain \u00e9");
}

TEST(Escape, knows_what_no_document_can_carry) {
  EXPECT_TRUE(fits_in_xml("a\tb\u20ac\U0001F600"));
  for (const char* text : {"\x01", "a\x1f", "\xff", "\xc3", "\xef\xbf\xbe"})
    EXPECT_FALSE(fits_in_xml(text)) << text;
}

TEST(Escape, changes_the_texts_of_records_in_place) {
  Owner<Property> properties;
  ASSERT_TRUE(add_property(properties, "Note", "a<b"));
  Owner<PropertyArray> arrays;
  ASSERT_TRUE(add_array(arrays, "Notes", std::vector<std::string>{"x&y", "z"}));
  const Owner<Instance> instance = make_instance("C", std::move(properties), std::move(arrays));
  ASSERT_TRUE(instance);
  ASSERT_TRUE(escape_values(*instance));
  EXPECT_EQ(get<std::string>(*instance, "Note"), "a&lt;b");
  EXPECT_EQ(get_array<std::string>(*instance, "Notes"), (std::vector<std::string>{"x&amp;y", "z"}));
}

TEST(Escape, changes_keys_also_in_references) {
  Owner<KeyBinding> inner;
  ASSERT_TRUE(add_key(inner, "Name", "a&b"));
  Owner<KeyBinding> keys = make<KeyBinding>();
  keys->valueReference = make<ValueReference>().release();
  keys->valueReference->instanceName = make_instance_name("C", std::move(inner)).release();
  ASSERT_TRUE(add_key(keys, "Id", "<1>"));
  const Owner<InstanceName> name = make_instance_name("D", std::move(keys));
  ASSERT_TRUE(escape_keys(*name));
  EXPECT_EQ(get<std::string>(*name, "Id"), "&lt;1&gt;");
  EXPECT_EQ(get<std::string>(*name->keyBindings->valueReference->instanceName, "Name"), "a&amp;b");
}

TEST(Escape, is_done_for_cim_xml_and_not_for_the_local_broker) {
  const Client client("127.0.0.1", 5988, "root", "user", "password");
  ASSERT_TRUE(client);
  client.handle()->interface = 0;
  EXPECT_EQ(client.outgoing("a&b"), "a&amp;b");
  client.handle()->interface = 1;
  EXPECT_EQ(client.outgoing("a&b"), "a&b");
}

}  // namespace

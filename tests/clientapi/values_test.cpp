// Broker values as texts, and the names of their types.
#include <gtest/gtest.h>

#include <limits>

#include "clientapi/local_records.h"
#include "support/scripted_broker.h"

namespace {

using namespace support;
using sandbox_local::CIMCBoolean;
using sandbox_local::CIMCType;
using sandbox_local::CIMCValue;
using sandbox_local::Datum;
namespace code = sandbox_local::code;

std::string text_of(const Datum& datum) {
  char* text = nullptr;
  EXPECT_EQ(value2Chars(datum.type, &datum.value, &text), 0);
  std::string result = text ? text : "(none)";
  std::free(text);
  return result;
}

TEST(LocalValues, every_type_has_its_text) {
  ScriptedBroker broker;
  EXPECT_EQ(text_of(number(code::boolean, &CIMCValue::boolean, CIMCBoolean{1})), "true");
  EXPECT_EQ(text_of(number(code::boolean, &CIMCValue::boolean, CIMCBoolean{0})), "false");
  EXPECT_EQ(text_of(number(code::uint8, &CIMCValue::uint8, std::uint8_t{200})), "200");
  EXPECT_EQ(text_of(number(code::sint8, &CIMCValue::sint8, std::int8_t{-56})), "-56");
  EXPECT_EQ(text_of(uint16(65535)), "65535");
  EXPECT_EQ(text_of(number(code::sint16, &CIMCValue::sint16, std::int16_t{-1})), "-1");
  EXPECT_EQ(text_of(uint32(4294967295)), "4294967295");
  EXPECT_EQ(text_of(number(code::sint32, &CIMCValue::sint32, std::int32_t{-7})), "-7");
  EXPECT_EQ(
      text_of(number(code::uint64, &CIMCValue::uint64, std::numeric_limits<std::uint64_t>::max())),
      "18446744073709551615");
  EXPECT_EQ(
      text_of(number(code::sint64, &CIMCValue::sint64, std::numeric_limits<std::int64_t>::min())),
      "-9223372036854775808");
  EXPECT_EQ(text_of(number(code::real32, &CIMCValue::real32, 1.5F)), "1.5");
  EXPECT_EQ(text_of(number(code::real64, &CIMCValue::real64, -2.5e-300)), "-2.5e-300");
  EXPECT_EQ(text_of(sandbox_local::text("text")), "text");
  EXPECT_EQ(text_of(sandbox_local::time("20240101000000.000000+000")), "20240101000000.000000+000");
  EXPECT_EQ(text_of(sandbox_local::reference(fan_path())), "root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
}

TEST(LocalValues, what_has_no_text_has_none) {
  ScriptedBroker broker;
  EXPECT_EQ(text_of(number(code::char16, &CIMCValue::char16, std::uint16_t{65})), "(none)");
  EXPECT_EQ(text_of(sandbox_local::instance(fan())), "(none)");
  EXPECT_EQ(text_of(sandbox_local::array(sandbox_local::ArrayObject(1, code::uint8))), "(none)");
}

TEST(LocalValues, string_objects_come_under_five_codes) {
  ScriptedBroker broker;
  for (const CIMCType type :
       {CIMCType{5632}, CIMCType{5634}, CIMCType{5884}, CIMCType{5888}, CIMCType{7680}}) {
    Datum datum = sandbox_local::text("text");
    datum.type = type;
    EXPECT_EQ(text_of(datum), "text") << type;
  }
}

TEST(LocalValues, a_null_object_is_not_followed) {
  const CIMCValue null{};
  for (const CIMCType type : {code::string, code::datetime, code::reference}) {
    char unset[] = "unset";
    char* text = unset;
    EXPECT_EQ(value2Chars(type, &null, &text), 0);
    EXPECT_EQ(text, nullptr);
  }
  EXPECT_EQ(value2Chars(code::string, &null, nullptr), 0);
}

TEST(LocalValues, no_value_has_no_text) {
  char unset[] = "unset";
  char* text = unset;
  EXPECT_EQ(value2Chars(code::uint8, nullptr, &text), 0);
  EXPECT_EQ(text, nullptr);
}

// Some brokers leave slots of a path's table empty.
TEST(LocalValues, a_path_that_cannot_be_written_has_no_text) {
  ScriptedBroker broker;
  sandbox_local::Path path = fan_path();
  sandbox_local::CIMCObjectPathFT without = *path.ft;
  without.toString = nullptr;
  path.ft = &without;
  CIMCValue value{};
  value.ref = &path;
  char* text = nullptr;
  EXPECT_EQ(value2Chars(code::reference, &value, &text), 0);
  EXPECT_EQ(text, nullptr);
}

TEST(LocalValues, names_follow_the_low_16_bits_of_the_code) {
  const std::pair<std::uint32_t, const char*> names[] = {
      {2, "boolean"},  {128, "uint8"},    {144, "uint16"},    {160, "uint32"},
      {176, "uint64"}, {192, "sint8"},    {208, "sint16"},    {224, "sint32"},
      {240, "sint64"}, {5632, "string"},  {6144, "datetime"}, {8336, "uint16"},
      {8384, "sint8"}, {13824, "string"}, {8352, ""},         {8320, ""},
      {8, ""},         {12, ""},          {4352, ""},         {0x100A0, "uint32"}};
  for (const auto& [type, name] : names) EXPECT_STREQ(CIMC_getDataType(type), name) << type;
}

TEST(LocalValues, codes_follow_the_name) {
  const std::pair<const char*, int> codes[] = {
      {"boolean", 2},   {"uint8", 128},  {"uint16", 144}, {"uint32", 160},  {"uint64", 176},
      {"sint8", 192},   {"sint16", 208}, {"sint32", 224}, {"sint64", 240},  {"datetime", 6144},
      {"string", 5888}, {"real32", 0},   {"char16", 0},   {"reference", 0}, {"UINT8", 0}};
  for (const auto& [name, type] : codes) EXPECT_EQ(cimc_getCMPIType(name), type) << name;
  EXPECT_EQ(cimc_getCMPIType(nullptr), 0);
}

}  // namespace

// The method call over CIM-XML.
#include <gtest/gtest.h>

#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/written.h"

namespace operations_test {
namespace {

using support::written;

// ---- Requests ----

TEST(InvokeMethod, sends_a_method_call_with_local_instance_path) {
  ObjectManager object_manager(no_answer);
  const auto name = instance_name("CIM_Fan", "left");
  const auto in = param_value("Wanted", "100");
  in->next = param_value("Within", "5").release();
  CIMC_XML_invokeMethod(object_manager.handle(), name.get(), "SetSpeed", in.get(), nullptr,
                        nullptr);
  EXPECT_EQ(
      object_manager.message(),
      "POST  /cimom HTTP/1.1 \r\n"
      "Content-Type: application/xml; charset=\"utf-8\"\r\n"
      "Content-Length: 591\r\n"
      "Authorization: Basic dXNlcjpzZWNyZXQ=\r\n"
      "\n\r"
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
      "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
      "<METHODCALL NAME=\"SetSpeed\">"
      "<LOCALINSTANCEPATH>"
      "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
      "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME>"
      "</LOCALINSTANCEPATH>"
      "<PARAMVALUE NAME=\"Wanted\" PARAMTYPE=\"uint32\"><VALUE>100</VALUE></PARAMVALUE>"
      "<PARAMVALUE NAME=\"Within\" PARAMTYPE=\"uint32\"><VALUE>5</VALUE></PARAMVALUE>"
      "</METHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(InvokeMethod, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_invokeMethod(object_manager.handle(), nullptr, "SetSpeed", nullptr, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
            "<METHODCALL NAME=\"SetSpeed\">"
            "<LOCALINSTANCEPATH>"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
            "</LOCALINSTANCEPATH>"
            "</METHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(InvokeMethod, leaves_the_records_given_as_they_are) {
  ObjectManager object_manager(http_answer(method_answer("SetSpeed", "")));
  const auto name = instance_name("CIM_Fan", "left");
  const auto in = param_value("Wanted", "100");
  CIMC_XML_invokeMethod(object_manager.handle(), name.get(), "SetSpeed", in.get(), nullptr,
                        nullptr);
  EXPECT_EQ(
      written(Gen_InstanceName, name.get()),
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
      "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME>");
  EXPECT_EQ(written(Gen_ParamValue, in.get()),
            "<PARAMVALUE NAME=\"Wanted\" PARAMTYPE=\"uint32\"><VALUE>100</VALUE></PARAMVALUE>");
}

// ---- The return value ----

int returned(const std::string& content) {
  ObjectManager object_manager(http_answer(method_answer("SetSpeed", content)));
  return CIMC_XML_invokeMethod(object_manager.handle(), nullptr, "SetSpeed", nullptr, nullptr,
                               nullptr);
}

int returned_number(const std::string& text) {
  return returned("<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>" + text +
                  "</VALUE>\n</RETURNVALUE>\n");
}

TEST(InvokeMethod, returns_the_number_of_the_method) {
  EXPECT_EQ(returned_number("0"), 0);
  EXPECT_EQ(returned_number("4096"), 4096);
  EXPECT_EQ(returned_number("-7"), -7);
  EXPECT_EQ(returned_number("2147483647"), 2147483647);
}

TEST(InvokeMethod, a_text_gives_its_leading_digits) {
  EXPECT_EQ(returned_number("12 rpm"), 12);
  EXPECT_EQ(returned_number(" 12"), 12);
  EXPECT_EQ(returned_number("0x10"), 0);
  EXPECT_EQ(returned_number("TRUE"), 0);
}

TEST(InvokeMethod, a_number_beyond_32_bits_gives_the_limit_whatever_the_width_of_long) {
  EXPECT_EQ(returned_number("2147483648"), 2147483647);
  EXPECT_EQ(returned_number("4294967295"), 2147483647);
  EXPECT_EQ(returned_number("99999999999999999999"), 2147483647);
  EXPECT_EQ(returned_number("-2147483649"), -2147483647 - 1);
  EXPECT_EQ(returned_number("-99999999999999999999"), -2147483647 - 1);
}

TEST(InvokeMethod, a_return_value_without_text_gives_minus_1) {
  EXPECT_EQ(returned("<RETURNVALUE PARAMTYPE=\"uint32\"></RETURNVALUE>"), -1);
  EXPECT_EQ(returned("<RETURNVALUE><VALUE.REFERENCE><CLASSNAME NAME=\"C\"/></VALUE.REFERENCE>"
                     "</RETURNVALUE>"),
            -1);
  EXPECT_EQ(returned("<RETURNVALUE><VALUE><![CDATA[<INSTANCE CLASSNAME=\"C\"></INSTANCE>]]></VALUE>"
                     "</RETURNVALUE>"),
            -1);
}

TEST(InvokeMethod, no_return_value_gives_minus_1) { EXPECT_EQ(returned(""), -1); }

// ---- Output parameters ----

const std::string speed_out =
    "<PARAMVALUE NAME=\"Reached\" PARAMTYPE=\"uint32\">\n<VALUE>90</VALUE>\n</PARAMVALUE>\n"
    "<PARAMVALUE NAME=\"After\" PARAMTYPE=\"uint32\">\n<VALUE>4</VALUE>\n</PARAMVALUE>\n";

struct Invoked {
  int number;
  OwnedParamValue out;
  OwnedError error;
};

Invoked invoke(const std::string& content) {
  ObjectManager object_manager(http_answer(method_answer("SetSpeed", content)));
  ParamValue* out = nullptr;
  Error* error = nullptr;
  const int number =
      CIMC_XML_invokeMethod(object_manager.handle(), nullptr, "SetSpeed", nullptr, &out, &error);
  return {number, OwnedParamValue(out), OwnedError(error)};
}

TEST(InvokeMethod, hands_out_output_parameters_with_a_return_value) {
  const auto invoked =
      invoke("<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>0</VALUE>\n</RETURNVALUE>\n" + speed_out);
  EXPECT_EQ(invoked.number, 0);
  EXPECT_EQ(invoked.error, nullptr);
  EXPECT_EQ(written(Gen_ParamValue, invoked.out.get()),
            "<PARAMVALUE NAME=\"Reached\" PARAMTYPE=\"uint32\"><VALUE>90</VALUE></PARAMVALUE>"
            "<PARAMVALUE NAME=\"After\" PARAMTYPE=\"uint32\"><VALUE>4</VALUE></PARAMVALUE>");
}

TEST(InvokeMethod, a_return_value_without_text_brings_output_parameters_too) {
  const auto invoked = invoke("<RETURNVALUE PARAMTYPE=\"uint32\"></RETURNVALUE>" + speed_out);
  EXPECT_EQ(invoked.number, -1);
  ASSERT_NE(invoked.out, nullptr);
  EXPECT_STREQ(invoked.out->name, "Reached");
}

TEST(InvokeMethod, output_parameters_without_a_return_value_are_not_handed_out) {
  const auto invoked = invoke(speed_out);
  EXPECT_EQ(invoked.number, -1);
  EXPECT_EQ(invoked.out, nullptr);
  EXPECT_EQ(invoked.error, nullptr);
}

TEST(InvokeMethod, an_error_counts_more_than_a_return_value) {
  const auto invoked = invoke(
      "<ERROR CODE=\"17\" DESCRIPTION=\"no such method\"/>"
      "<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>0</VALUE>\n</RETURNVALUE>\n" +
      speed_out);
  EXPECT_EQ(invoked.number, -1);
  EXPECT_EQ(invoked.out, nullptr);
  EXPECT_EQ(text_of(invoked.error.get()), "17 no such method");
}

TEST(InvokeMethod, the_place_for_output_parameters_is_left_alone_when_none_came) {
  ObjectManager object_manager(http_answer(method_answer(
      "SetSpeed", "<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>3</VALUE>\n</RETURNVALUE>\n")));
  ParamValue mine{};
  ParamValue* out = &mine;
  EXPECT_EQ(
      CIMC_XML_invokeMethod(object_manager.handle(), nullptr, "SetSpeed", nullptr, &out, nullptr),
      3);
  EXPECT_EQ(out, &mine);
}

TEST(InvokeMethod, output_parameters_without_a_place_are_released) {
  EXPECT_EQ(returned("<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>3</VALUE>\n</RETURNVALUE>\n" +
                     speed_out),
            3);
}

TEST(InvokeMethod, a_refusal_gives_minus_1_without_an_error) {
  ObjectManager object_manager(http_refusal());
  Error* error = nullptr;
  EXPECT_EQ(
      CIMC_XML_invokeMethod(object_manager.handle(), nullptr, "SetSpeed", nullptr, nullptr, &error),
      -1);
  EXPECT_EQ(error, nullptr);
}

}  // namespace
}  // namespace operations_test

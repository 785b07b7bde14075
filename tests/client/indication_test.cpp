// GetIndicationInstance().
#include <gtest/gtest.h>

#include <cstdio>

#include "cim_client.h"
#include "operations/records.h"
#include "support/allocations.h"
#include "support/captured_output.h"
#include "support/scale.h"

namespace {

using operations_test::OwnedInstance;
using support::CapturedOutput;

// An export request as object managers send it; `parameters` is what stands in EXPMETHODCALL.
std::string indication(const std::string& parameters) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
         "<MESSAGE ID=\"877\" PROTOCOLVERSION=\"1.0\">\n"
         "<SIMPLEEXPREQ>\n"
         "<EXPMETHODCALL NAME=\"ExportIndication\">\n" +
         parameters +
         "</EXPMETHODCALL>\n"
         "</SIMPLEEXPREQ>\n"
         "</MESSAGE>\n"
         "</CIM>";
}

// A document whose MESSAGE holds `content`.
std::string message(const std::string& content) {
  return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
         "<MESSAGE ID=\"877\" PROTOCOLVERSION=\"1.0\">" +
         content + "</MESSAGE></CIM>";
}

const std::string alert =
    "<EXPPARAMVALUE NAME=\"NewIndication\">\n"
    "<INSTANCE CLASSNAME=\"CIM_AlertIndication\">\n"
    "<PROPERTY NAME=\"Description\" TYPE=\"string\" CLASSORIGIN=\"CIM_Alert\">\n"
    "<VALUE>hot</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY.ARRAY NAME=\"Codes\" TYPE=\"uint16\">\n"
    "<VALUE.ARRAY>\n<VALUE>1</VALUE>\n<VALUE>2</VALUE>\n</VALUE.ARRAY>\n"
    "</PROPERTY.ARRAY>\n"
    "</INSTANCE>\n"
    "</EXPPARAMVALUE>\n";

// Expects -1 and an untouched place for the instance.
void expect_none(const std::string& text) {
  Instance mine{};
  Instance* instance = &mine;
  EXPECT_EQ(GetIndicationInstance(text.c_str(), &instance), -1) << text;
  EXPECT_EQ(instance, &mine);
}

// ---- Instances ----

TEST(GetIndicationInstance, gives_the_instance) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(indication(alert).c_str(), &instance), 0);
  const OwnedInstance owned(instance);
  ASSERT_NE(instance, nullptr);
  EXPECT_STREQ(instance->className->name, "CIM_AlertIndication");
  ASSERT_NE(instance->properties, nullptr);
  EXPECT_STREQ(instance->properties->name, "Description");
  EXPECT_STREQ(instance->properties->type, "string");
  EXPECT_STREQ(instance->properties->value->text, "hot");
  ASSERT_NE(instance->propertyArrays, nullptr);
  EXPECT_STREQ(instance->propertyArrays->name, "Codes");
  EXPECT_STREQ(instance->propertyArrays->valueArray->values->text, "1");
  EXPECT_STREQ(instance->propertyArrays->valueArray->values->next->text, "2");
  EXPECT_EQ(instance->next, nullptr);
}

// It is a copy, and copies are known so.
TEST(GetIndicationInstance, keeps_the_first_character_of_a_class_origin_only) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(indication(alert).c_str(), &instance), 0);
  const OwnedInstance owned(instance);
  EXPECT_STREQ(instance->properties->classOrigin, "C");
}

TEST(GetIndicationInstance, skips_http_headers) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(
                ("POST / HTTP/1.1\r\nContent-Type: application/xml\r\nCIMExport: MethodRequest\r\n"
                 "\r\n" +
                 indication(alert))
                    .c_str(),
                &instance),
            0);
  const OwnedInstance owned(instance);
  EXPECT_STREQ(instance->className->name, "CIM_AlertIndication");
}

TEST(GetIndicationInstance, takes_the_first_parameter) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(indication("<EXPPARAMVALUE NAME=\"NewIndication\">"
                                             "<INSTANCE CLASSNAME=\"First\"></INSTANCE>"
                                             "</EXPPARAMVALUE>"
                                             "<EXPPARAMVALUE NAME=\"NewIndication\">"
                                             "<INSTANCE CLASSNAME=\"Second\"></INSTANCE>"
                                             "</EXPPARAMVALUE>")
                                      .c_str(),
                                  &instance),
            0);
  const OwnedInstance owned(instance);
  EXPECT_STREQ(instance->className->name, "First");
}

// ---- None ----

TEST(GetIndicationInstance, null_arguments_give_minus_1) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(nullptr, &instance), -1);
  EXPECT_EQ(instance, nullptr);
  EXPECT_EQ(GetIndicationInstance(indication(alert).c_str(), nullptr), -1);
}

TEST(GetIndicationInstance, a_response_gives_minus_1) {
  expect_none(
      message("<SIMPLERSP><IMETHODRESPONSE NAME=\"GetInstance\"><IRETURNVALUE>"
              "<INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE></IRETURNVALUE></IMETHODRESPONSE>"
              "</SIMPLERSP>"));
}

TEST(GetIndicationInstance, several_indications_give_minus_1) {
  expect_none(
      message("<MULTIEXPREQ><SIMPLEEXPREQ><EXPMETHODCALL NAME=\"ExportIndication\">"
              "<EXPPARAMVALUE NAME=\"NewIndication\"><INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE>"
              "</EXPPARAMVALUE></EXPMETHODCALL></SIMPLEEXPREQ></MULTIEXPREQ>"));
}

TEST(GetIndicationInstance, a_missing_link_gives_minus_1) {
  expect_none("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>");
  expect_none(message(""));
  expect_none(message("<SIMPLEEXPREQ></SIMPLEEXPREQ>"));
  expect_none(message("<SIMPLEEXPREQ><EXPMETHODCALL NAME=\"x\"></EXPMETHODCALL></SIMPLEEXPREQ>"));
  expect_none(indication("<EXPPARAMVALUE NAME=\"NewIndication\"></EXPPARAMVALUE>"));
  expect_none(indication("<EXPPARAMVALUE NAME=\"x\"><VALUE>1</VALUE></EXPPARAMVALUE>" + alert));
}

TEST(GetIndicationInstance, a_text_without_document_gives_minus_1) {
  expect_none("");
  expect_none("POST / HTTP/1.1\r\n\r\n");
}

TEST(GetIndicationInstance, a_document_that_is_not_well_formed_gives_minus_1) {
  const CapturedOutput output(stdout);
  expect_none(indication(alert) + "</CIM>");
}

// parseXML() gives the tree of the document before; here that is the application's.
TEST(GetIndicationInstance, a_document_without_cim_gives_minus_1_and_not_an_earlier_indication) {
  CIM* mine = parseXML(indication(alert).c_str());
  ASSERT_NE(mine, nullptr);
  {
    const CapturedOutput output(stdout);
    expect_none("<?xml version=\"1.0\"?><HTML><BODY/></HTML>");
  }
  EXPECT_EQ(returnAddress, mine);
  EXPECT_STREQ(mine->message->id, "877");
  Free_CIM(mine);
}

TEST(GetIndicationInstance, its_tree_is_not_handed_out_again) {
  Instance* instance = nullptr;
  EXPECT_EQ(GetIndicationInstance(indication(alert).c_str(), &instance), 0);
  const OwnedInstance owned(instance);
  EXPECT_EQ(returnAddress, nullptr);
}

// ---- Memory ----

long growth(const std::string& text) {
  const int repetitions = support::scaled(10'000);
  long before = 0;
  for (int repetition = 0; repetition <= repetitions; ++repetition) {
    Instance* instance = nullptr;
    GetIndicationInstance(text.c_str(), &instance);
    Free_Instance(instance);
    if (repetition == 0) before = support::living_blocks();
  }
  return support::living_blocks() - before;
}

TEST(GetIndicationInstance, leaves_no_memory_behind_whatever_the_document) {
  const CapturedOutput output(stdout);
  EXPECT_EQ(growth(indication(alert)), 0);
  EXPECT_EQ(growth(indication("<EXPPARAMVALUE NAME=\"x\"><VALUE>1</VALUE></EXPPARAMVALUE>")), 0);
  EXPECT_EQ(growth(message("<SIMPLEREQ><IMETHODCALL NAME=\"GetClass\">"
                           "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/>"
                           "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ>")),
            0);
  EXPECT_EQ(growth("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>"), 0);
  EXPECT_EQ(growth("<?xml version=\"1.0\"?><HTML><BODY/></HTML>"), 0);
  EXPECT_EQ(growth(indication(alert) + "</CIM>"), 0);
}

TEST(GetIndicationInstance, running_out_of_memory_gives_minus_1) {
  const CapturedOutput output(stdout);
  const std::string text = indication(alert);
  Instance* instance = nullptr;
  int result = GetIndicationInstance(text.c_str(), &instance);
  Free_Instance(instance);
  const long before = support::living_blocks();  // with what the reader keeps for the next time
  int failures = 0;
  support::fail_each_allocation(
      [&] {
        instance = nullptr;
        result = GetIndicationInstance(text.c_str(), &instance);
      },
      [&] {
        if (result == 0 || instance) ADD_FAILURE() << "succeeded after " << failures;
        if (support::living_blocks() > before) ADD_FAILURE() << "leaks after " << failures;
        ++failures;
      });
  EXPECT_GT(failures, 30);
  EXPECT_EQ(result, 0);
  const OwnedInstance owned(instance);
  EXPECT_STREQ(instance->className->name, "CIM_AlertIndication");
}

}  // namespace

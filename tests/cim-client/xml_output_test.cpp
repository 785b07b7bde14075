// Results as they were sent.
#include "xml_output.h"

#include <gtest/gtest.h>

#include <sstream>

namespace cli {
namespace {

TEST(XmlOutput, the_result_is_cut_out_byte_for_byte) {
  EXPECT_EQ(xml_element("<CIM>\n<IMETHODRESPONSE NAME=\"X\">\n<IRETURNVALUE>\n<VALUE>a &lt; "
                        "b</VALUE>\n</IRETURNVALUE>\n</IMETHODRESPONSE></CIM>",
                        "IRETURNVALUE"),
            "<IRETURNVALUE>\n<VALUE>a &lt; b</VALUE>\n</IRETURNVALUE>");
}

TEST(XmlOutput, an_empty_element_is_an_element) {
  EXPECT_EQ(xml_element("<X><IRETURNVALUE/></X>", "IRETURNVALUE"), "<IRETURNVALUE/>");
  EXPECT_EQ(xml_element("<X><IRETURNVALUE></IRETURNVALUE></X>", "IRETURNVALUE"),
            "<IRETURNVALUE></IRETURNVALUE>");
}

TEST(XmlOutput, attributes_belong_to_the_element) {
  EXPECT_EQ(xml_element("<A><METHODRESPONSE NAME=\"M\"><RETURNVALUE/></METHODRESPONSE></A>",
                        "METHODRESPONSE"),
            "<METHODRESPONSE NAME=\"M\"><RETURNVALUE/></METHODRESPONSE>");
}

TEST(XmlOutput, a_longer_name_is_another_element) {
  EXPECT_EQ(xml_element("<IRETURNVALUES/><IRETURNVALUE/>", "IRETURNVALUE"), "<IRETURNVALUE/>");
}

TEST(XmlOutput, missing_or_cut_elements_give_nothing) {
  EXPECT_EQ(xml_element("", "IRETURNVALUE"), "");
  EXPECT_EQ(xml_element("<ERROR CODE=\"6\"/>", "IRETURNVALUE"), "");
  EXPECT_EQ(xml_element("<IRETURNVALUE", "IRETURNVALUE"), "");
  EXPECT_EQ(xml_element("<IRETURNVALUE>abc", "IRETURNVALUE"), "");
  EXPECT_EQ(xml_element("<IRETURNVALUE>abc</IRETURNVALUE", "IRETURNVALUE"), "");
}

TEST(XmlOutput, each_kind_of_result_writes_its_element) {
  const std::string answer =
      "<IRETURNVALUE>1</IRETURNVALUE><METHODRESPONSE>2</METHODRESPONSE>"
      "<EXPPARAMVALUE>3</EXPPARAMVALUE>";
  std::ostringstream out;
  XmlOutput output(out, answer);
  output.instances(nullptr);
  output.method_result({nullptr, nullptr});
  EXPECT_EQ(out.str(), "<IRETURNVALUE>1</IRETURNVALUE>\n<METHODRESPONSE>2</METHODRESPONSE>\n");
}

}  // namespace
}  // namespace cli

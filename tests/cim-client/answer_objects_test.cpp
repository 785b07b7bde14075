// Objects in other forms than the library hands out.
#include "answer_objects.h"

#include <gtest/gtest.h>

#include "cim-client/answers.h"
#include "document.h"
#include "path_text.h"
#include "views.h"

namespace cli {
namespace {

CimOwner answer(const std::string& result) {
  return parse_document(answers::document("<SIMPLERSP><IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" +
                                          result +
                                          "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP>"));
}

TEST(AnswerObjects, objects_without_path_are_taken) {
  const CimOwner document = answer(
      "<VALUE.OBJECT><INSTANCE CLASSNAME=\"CIM_A\"></INSTANCE></VALUE.OBJECT>"
      "<VALUE.OBJECT><CLASS NAME=\"CIM_B\"></CLASS></VALUE.OBJECT>");
  const ObjectWithPathOwner list = taken_objects(*result_of(*document));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(class_of(*list->instance), "CIM_A");
  EXPECT_EQ(list->instancePath, nullptr);
  ASSERT_NE(list->next, nullptr);
  EXPECT_STREQ(list->next->class_->name, "CIM_B");
  EXPECT_EQ(list->next->next, nullptr);
}

TEST(AnswerObjects, a_local_path_is_kept) {
  const CimOwner document = answer(
      "<VALUE.OBJECTWITHLOCALPATH><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE "
      "NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH><INSTANCENAME "
      "CLASSNAME=\"CIM_A\"><KEYBINDING NAME=\"K\"><KEYVALUE "
      "VALUETYPE=\"string\">1</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH><INSTANCE "
      "CLASSNAME=\"CIM_A\"></INSTANCE></VALUE.OBJECTWITHLOCALPATH>");
  const ObjectWithPathOwner list = taken_objects(*result_of(*document));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(path_text(view_of(*list->instancePath)), "/root/cimv2:CIM_A.K=\"1\"");
  EXPECT_EQ(class_of(*list->instance), "CIM_A");
}

TEST(AnswerObjects, other_results_give_none) {
  const CimOwner document = answer("<CLASSNAME NAME=\"CIM_A\"/>");
  EXPECT_EQ(taken_objects(*result_of(*document)), nullptr);
}

}  // namespace
}  // namespace cli

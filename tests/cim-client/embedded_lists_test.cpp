// Embedded instances after they have been written.
#include "embedded_lists.h"

#include <gtest/gtest.h>

#include "owners.h"
#include "records.h"

namespace cli {
namespace {

Value* embedded_value(const char* class_name) {
  auto* value = new_record<Value>();
  value->isCData = 1;
  value->instance = new_record<Instance>();
  value->instance->className = CIMC_CreateClassName(class_name);
  char text[] = "x";
  AddToProeprtyList(&value->instance->properties, "P", text, "string");
  auto* array = new_record<ValueArray>();
  AddToValueList(&array->values, "1");
  AddToPropertyArrayList(&value->instance->propertyArrays, "A", array, "string");
  return value;
}

TEST(EmbeddedLists, properties_are_there_again_after_writing_an_instance) {
  const InstanceOwner instance(new_record<Instance>());
  instance->properties = new_record<Property>();
  instance->properties->value = embedded_value("CIM_X");
  const Instance* embedded = instance->properties->value->instance;
  {
    const EmbeddedLists lists(instance.get());
    char* text = nullptr;
    Gen_Instance(instance.get(), &text);
    const TextOwner owner(text);
    ASSERT_EQ(embedded->properties, nullptr) << "the writer unhooks them";
  }
  ASSERT_NE(embedded->properties, nullptr);
  EXPECT_STREQ(embedded->properties->name, "P");
  ASSERT_NE(embedded->propertyArrays, nullptr);
  EXPECT_STREQ(embedded->propertyArrays->name, "A");
}

TEST(EmbeddedLists, parameters_and_arrays_of_them_are_covered) {
  const ParamValueOwner parameters(new_record<ParamValue>());
  parameters->value = embedded_value("CIM_X");
  parameters->next = new_record<ParamValue>();
  parameters->next->valueArray = new_record<ValueArray>();
  append(&parameters->next->valueArray->values, embedded_value("CIM_Y"));
  append(&parameters->next->valueArray->values, embedded_value("CIM_Z"));
  {
    const EmbeddedLists lists(parameters.get());
    char* text = nullptr;
    Gen_ParamValue(parameters.get(), &text);
    const TextOwner owner(text);
  }
  EXPECT_NE(parameters->value->instance->properties, nullptr);
  const Value* values = parameters->next->valueArray->values;
  EXPECT_NE(values->instance->properties, nullptr);
  EXPECT_NE(values->next->instance->propertyArrays, nullptr);
}

}  // namespace
}  // namespace cli

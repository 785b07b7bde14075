// From an instance as read to the instance to send.
#include "modification.h"

#include <gtest/gtest.h>

#include "owners.h"
#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

using Names = std::vector<std::string>;

std::string sent(Instance* instance) {
  char* text = nullptr;
  Gen_Instance(instance, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

Property* property(const char* name, const char* value) {
  auto* record = new_record<Property>();
  record->name = new_text(name);
  record->type = new_text("string");
  if (value != nullptr) AddToValueList(&record->value, value);
  return record;
}

Qualifier* qualifier() {
  auto* record = new_record<Qualifier>();
  record->name = new_text("Q");
  return record;
}

TEST(Modification, what_only_answers_say_is_left_out) {
  const InstanceOwner instance(new_record<Instance>());
  instance->className = CIMC_CreateClassName("CIM_X");
  instance->qualifiers = qualifier();
  instance->properties = property("A", "1");
  instance->properties->qualifiers = qualifier();
  instance->properties->classOrigin = new_text("CIM_Y");
  instance->properties->propagated = 1;
  instance->propertyArrays = new_record<PropertyArray>();
  instance->propertyArrays->name = new_text("B");
  instance->propertyArrays->type = new_text("uint8");
  instance->propertyArrays->arraySize = 4;
  instance->propertyArrays->propagated = 1;
  instance->propertyReferences = new_record<PropertyReference>();
  instance->propertyReferences->name = new_text("C");
  instance->propertyReferences->referenceClass = new_text("CIM_Z");
  instance->propertyReferences->propagated = 1;
  EXPECT_EQ(make_sendable(*instance), Names{});
  EXPECT_EQ(sent(instance.get()),
            "<INSTANCE CLASSNAME=\"CIM_X\">"
            "<PROPERTY NAME=\"A\" TYPE=\"string\"><VALUE>1</VALUE></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"B\" TYPE=\"uint8\"></PROPERTY.ARRAY>"
            "<PROPERTY.REFERENCE NAME=\"C\" REFERENCECLASS=\"CIM_Z\"></PROPERTY.REFERENCE>"
            "</INSTANCE>");
}

TEST(Modification, embedded_instances_are_put_together_again) {
  const InstanceOwner instance(new_record<Instance>());
  instance->className = CIMC_CreateClassName("CIM_X");
  instance->properties = property("Setting", nullptr);
  instance->properties->value = new_record<Value>();
  instance->properties->value->instance = samples::embedded_setting();
  Instance* embedded = instance->properties->value->instance;
  Free_PropertyArray(embedded->propertyArrays);
  embedded->propertyArrays = nullptr;
  EXPECT_EQ(make_sendable(*instance), Names{});
  Property* kept = embedded->properties;
  EXPECT_EQ(sent(instance.get()),
            "<INSTANCE CLASSNAME=\"CIM_X\"><PROPERTY NAME=\"Setting\" TYPE=\"string\"><VALUE>"
            "<![CDATA[\n<INSTANCE CLASSNAME=\"CIM_FanSetting\">"
            "<PROPERTY NAME=\"InstanceID\" TYPE= \"string\"><VALUE>quiet</VALUE></PROPERTY>"
            "<PROPERTY NAME=\"Speed\" TYPE= \"uint32\"><VALUE>800</VALUE></PROPERTY>"
            "</INSTANCE>]]></VALUE></PROPERTY></INSTANCE>");
  embedded->properties = kept;
}

TEST(Modification, what_is_not_read_whole_is_not_sent_back) {
  const InstanceOwner instance(new_record<Instance>());
  instance->className = CIMC_CreateClassName("CIM_X");
  instance->properties = property("Setting", nullptr);
  instance->properties->value = new_record<Value>();
  instance->properties->value->instance = samples::embedded_setting();
  instance->properties->next = property("Other", "1");
  instance->propertyArrays = new_record<PropertyArray>();
  instance->propertyArrays->name = new_text("Settings");
  instance->propertyArrays->type = new_text("string");
  instance->propertyArrays->valueArray = new_record<ValueArray>();
  instance->propertyArrays->valueArray->values = new_record<Value>();
  instance->propertyArrays->valueArray->values->instance = samples::embedded_setting();
  EXPECT_EQ(make_sendable(*instance), (Names{"Setting", "Settings"}));
  EXPECT_EQ(sent(instance.get()),
            "<INSTANCE CLASSNAME=\"CIM_X\"><PROPERTY NAME=\"Other\" TYPE=\"string\">"
            "<VALUE>1</VALUE></PROPERTY></INSTANCE>");
}

TEST(Modification, changes_take_the_place_of_what_was_there) {
  const InstanceOwner instance(new_record<Instance>());
  instance->className = CIMC_CreateClassName("CIM_X");
  append(&instance->properties, property("A", "old"));
  append(&instance->properties, property("B", "kept"));
  const InstanceOwner changes(new_record<Instance>());
  append(&changes->properties, property("a", "new"));
  append(&changes->properties, property("C", "added"));
  apply(*instance, *changes);
  EXPECT_EQ(sent(instance.get()),
            "<INSTANCE CLASSNAME=\"CIM_X\">"
            "<PROPERTY NAME=\"a\" TYPE=\"string\"><VALUE>new</VALUE></PROPERTY>"
            "<PROPERTY NAME=\"B\" TYPE=\"string\"><VALUE>kept</VALUE></PROPERTY>"
            "<PROPERTY NAME=\"C\" TYPE=\"string\"><VALUE>added</VALUE></PROPERTY></INSTANCE>");
  EXPECT_EQ(changes->properties, nullptr) << "they have moved";
}

}  // namespace
}  // namespace cli

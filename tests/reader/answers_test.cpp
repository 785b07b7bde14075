// Reading the answers of operations: text in, tree out.  They are an object manager's: a line break
// after every tag.
#include <gtest/gtest.h>

#include "reader/reading.h"

namespace {

using reading::answer_of;
using reading::length;
using reading::read;
using reading::returned;
using reading::Tree;

class Answers : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

TEST_F(Answers, the_envelope) {
  const Tree tree = read(answer_of("GetInstance", "<IRETURNVALUE>\n</IRETURNVALUE>\n"));
  EXPECT_STREQ(tree->cimVersion, "2.0");
  EXPECT_STREQ(tree->dtdVersion, "2.0");
  EXPECT_FALSE(tree->declaration);
  EXPECT_STREQ(tree->message->id, "1234");
  EXPECT_STREQ(tree->message->protocolVersion, "1.0");
  EXPECT_FALSE(tree->message->simpleRsp->next);
  EXPECT_STREQ(tree->message->simpleRsp->iMethodResponse->name, "GetInstance");
  EXPECT_FALSE(tree->message->simpleRsp->iMethodResponse->error);
  EXPECT_EQ(tree.get(), returnAddress);
}

TEST_F(Answers, an_answer_without_content) {
  const Tree tree = read(answer_of("DeleteInstance", ""));
  EXPECT_STREQ(tree->message->simpleRsp->iMethodResponse->name, "DeleteInstance");
  EXPECT_FALSE(tree->message->simpleRsp->iMethodResponse->iReturnValue);
}

TEST_F(Answers, a_class) {
  const Tree tree = read(answer_of("GetClass", R"(<IRETURNVALUE>
<CLASS NAME="CIM_Fan" SUPERCLASS="CIM_CoolingDevice">
<QUALIFIER NAME="Description" TYPE="string" TRANSLATABLE="true">
<VALUE>A &quot;fan&quot;</VALUE>
</QUALIFIER>
<QUALIFIER NAME="ValueMap" TYPE="string" PROPAGATED="1" QUALIFIERFLAVOR="x">
<VALUE.ARRAY>
<VALUE>0</VALUE>
<VALUE>1</VALUE>
</VALUE.ARRAY>
</QUALIFIER>
<PROPERTY NAME="DeviceID" TYPE="string" CLASSORIGIN="CIM_LogicalDevice" PROPAGATED="1">
<QUALIFIER NAME="Key" TYPE="boolean">
<VALUE>TRUE</VALUE>
</QUALIFIER>
<QUALIFIER NAME="MaxLen" TYPE="uint32">
<VALUE>64</VALUE>
</QUALIFIER>
<QUALIFIER NAME="Override" TYPE="string"/>
</PROPERTY>
<PROPERTY.ARRAY NAME="OperationalStatus" TYPE="uint16" ARRAYSIZE="8">
<QUALIFIER NAME="ArrayType" TYPE="string">
<VALUE>Indexed</VALUE>
</QUALIFIER>
</PROPERTY.ARRAY>
<PROPERTY.REFERENCE NAME="Cooled" REFERENCECLASS="CIM_ManagedElement" CLASSORIGIN="CIM_Fan"/>
<PROPERTY NAME="VariableSpeed" TYPE="boolean">
<VALUE>FALSE</VALUE>
</PROPERTY>
<METHOD NAME="SetSpeed" TYPE="uint32" CLASSORIGIN="CIM_Fan" PROPAGATED="true">
<QUALIFIER NAME="Experimental" TYPE="boolean">
<VALUE>TRUE</VALUE>
</QUALIFIER>
<PARAMETER NAME="DesiredSpeed" TYPE="uint64">
<QUALIFIER NAME="IN" TYPE="boolean"/>
</PARAMETER>
<PARAMETER.REFERENCE NAME="Job" REFERENCECLASS="CIM_Job"/>
<PARAMETER.ARRAY NAME="Steps" TYPE="uint8" ARRAYSIZE="4"/>
<PARAMETER.REFARRAY NAME="Fans" REFERENCECLASS="CIM_Fan" ARRAYSIZE="2"/>
<PARAMETER NAME="Ramp" TYPE="uint16"/>
</METHOD>
<METHOD NAME="Reset"/>
</CLASS>
</IRETURNVALUE>
)"));
  const Class* fan = returned(tree).class_;
  EXPECT_STREQ(fan->name, "CIM_Fan");
  EXPECT_STREQ(fan->superClass, "CIM_CoolingDevice");
  EXPECT_FALSE(fan->next);

  const Qualifier* qualifier = fan->qualifiers;
  EXPECT_STREQ(qualifier->name, "Description");
  EXPECT_STREQ(qualifier->type, "string");
  EXPECT_STREQ(qualifier->value->text, "A \"fan\"");
  EXPECT_FALSE(qualifier->qualifierFlavor);
  EXPECT_STREQ(qualifier->next->name, "ValueMap");
  EXPECT_EQ(qualifier->next->propagated, 1);
  EXPECT_TRUE(qualifier->next->qualifierFlavor);
  EXPECT_STREQ(qualifier->next->valueArray->values->text, "0");
  EXPECT_STREQ(qualifier->next->valueArray->values->next->text, "1");
  EXPECT_FALSE(qualifier->next->next);

  const Property* id = fan->properties;
  EXPECT_STREQ(id->name, "DeviceID");
  EXPECT_STREQ(id->type, "string");
  EXPECT_STREQ(id->classOrigin, "CIM_LogicalDevice");
  EXPECT_EQ(id->propagated, 1);
  EXPECT_FALSE(id->value);
  EXPECT_STREQ(id->qualifiers->name, "Key");
  EXPECT_STREQ(id->qualifiers->next->name, "MaxLen");
  EXPECT_STREQ(id->qualifiers->next->value->text, "64");
  EXPECT_STREQ(id->qualifiers->next->next->name, "Override");
  EXPECT_FALSE(id->qualifiers->next->next->next);
  EXPECT_STREQ(id->next->name, "VariableSpeed");
  EXPECT_STREQ(id->next->value->text, "FALSE");
  EXPECT_FALSE(id->next->next);

  EXPECT_STREQ(fan->propertyArrays->name, "OperationalStatus");
  EXPECT_EQ(fan->propertyArrays->arraySize, 8);
  EXPECT_STREQ(fan->propertyArrays->qualifiers->value->text, "Indexed");
  EXPECT_FALSE(fan->propertyArrays->valueArray);
  EXPECT_STREQ(fan->propertyReferences->name, "Cooled");
  EXPECT_STREQ(fan->propertyReferences->referenceClass, "CIM_ManagedElement");
  EXPECT_STREQ(fan->propertyReferences->classOrigin, "CIM_Fan");

  const Method* method = fan->methods;
  EXPECT_STREQ(method->name, "SetSpeed");
  EXPECT_STREQ(method->type, "uint32");
  EXPECT_STREQ(method->classOrigin, "CIM_Fan");
  EXPECT_EQ(method->propagated, 0);
  EXPECT_STREQ(method->qualifiers->name, "Experimental");
  EXPECT_STREQ(method->parameters->name, "DesiredSpeed");
  EXPECT_STREQ(method->parameters->qualifiers->name, "IN");
  EXPECT_STREQ(method->parameters->next->name, "Ramp");
  EXPECT_STREQ(method->parameterReferences->referenceClass, "CIM_Job");
  EXPECT_EQ(method->parameterArrays->arraySize, 4);
  EXPECT_STREQ(method->parameterRefArrays->name, "Fans");
  EXPECT_EQ(method->parameterRefArrays->arraySize, 2);
  EXPECT_STREQ(method->next->name, "Reset");
  EXPECT_FALSE(method->next->type);
  EXPECT_FALSE(method->next->next);
}

TEST_F(Answers, named_instances) {
  const Tree tree = read(answer_of("EnumerateInstances", R"(<IRETURNVALUE>
<VALUE.NAMEDINSTANCE>
<INSTANCENAME CLASSNAME="CIM_Fan">
<KEYBINDING NAME="DeviceID">
<KEYVALUE VALUETYPE="string" TYPE="string">fan 0</KEYVALUE>
</KEYBINDING>
<KEYBINDING NAME="Slot">
<KEYVALUE VALUETYPE="numeric">7</KEYVALUE>
</KEYBINDING>
</INSTANCENAME>
<INSTANCE CLASSNAME="CIM_Fan">
<PROPERTY NAME="DeviceID" TYPE="string">
<VALUE>fan 0</VALUE>
</PROPERTY>
<PROPERTY.ARRAY NAME="OperationalStatus" TYPE="uint16">
<VALUE.ARRAY>
<VALUE>2</VALUE>
<VALUE>5</VALUE>
</VALUE.ARRAY>
</PROPERTY.ARRAY>
<PROPERTY NAME="Caption" TYPE="string">
</PROPERTY>
<PROPERTY.REFERENCE NAME="Cooled" REFERENCECLASS="CIM_ManagedElement">
<VALUE.REFERENCE>
<INSTANCENAME CLASSNAME="CIM_Card">
</INSTANCENAME>
</VALUE.REFERENCE>
</PROPERTY.REFERENCE>
<PROPERTY NAME="Speed" TYPE="uint64">
<VALUE>1200</VALUE>
</PROPERTY>
</INSTANCE>
</VALUE.NAMEDINSTANCE>
<VALUE.NAMEDINSTANCE>
<INSTANCENAME CLASSNAME="CIM_Fan">
</INSTANCENAME>
<INSTANCE CLASSNAME="CIM_Fan">
</INSTANCE>
</VALUE.NAMEDINSTANCE>
</IRETURNVALUE>
)"));
  const NamedInstance* named = returned(tree).namedInstance;
  EXPECT_EQ(length(named), 2);
  EXPECT_STREQ(named->instanceName->className->name, "CIM_Fan");
  const KeyBinding* key = named->instanceName->keyBindings;
  EXPECT_STREQ(key->name, "DeviceID");
  EXPECT_STREQ(key->keyValue->text, "fan 0");
  EXPECT_STREQ(key->keyValue->valueType, "string");
  EXPECT_STREQ(key->keyValue->cimType, "string");
  EXPECT_STREQ(key->next->name, "Slot");
  EXPECT_STREQ(key->next->keyValue->text, "7");
  EXPECT_FALSE(key->next->keyValue->cimType);
  EXPECT_FALSE(key->next->next);

  const Instance* fan = named->instance;
  EXPECT_STREQ(fan->className->name, "CIM_Fan");
  EXPECT_STREQ(fan->properties->name, "DeviceID");
  EXPECT_STREQ(fan->properties->value->text, "fan 0");
  EXPECT_STREQ(fan->properties->next->name, "Caption");
  EXPECT_FALSE(fan->properties->next->value);
  EXPECT_STREQ(fan->properties->next->next->name, "Speed");
  EXPECT_FALSE(fan->properties->next->next->next);
  EXPECT_STREQ(fan->propertyArrays->valueArray->values->text, "2");
  EXPECT_STREQ(fan->propertyArrays->valueArray->values->next->text, "5");
  EXPECT_STREQ(fan->propertyReferences->valueReference->instanceName->className->name, "CIM_Card");
  EXPECT_FALSE(named->next->instanceName->keyBindings);
  EXPECT_FALSE(named->next->instance->properties);
}

TEST_F(Answers, instance_names) {
  const Tree tree = read(answer_of("EnumerateInstanceNames", R"(<IRETURNVALUE>
<INSTANCENAME CLASSNAME="A">
<KEYBINDING NAME="k">
<KEYVALUE VALUETYPE="string">1</KEYVALUE>
</KEYBINDING>
</INSTANCENAME>
<INSTANCENAME CLASSNAME="B">
<KEYBINDING NAME="r">
<VALUE.REFERENCE>
<LOCALINSTANCEPATH>
<LOCALNAMESPACEPATH>
<NAMESPACE NAME="root"/>
<NAMESPACE NAME="cimv2"/>
</LOCALNAMESPACEPATH>
<INSTANCENAME CLASSNAME="C"/>
</LOCALINSTANCEPATH>
</VALUE.REFERENCE>
</KEYBINDING>
</INSTANCENAME>
<INSTANCENAME CLASSNAME="D"/>
</IRETURNVALUE>
)"));
  const InstanceName* name = returned(tree).instanceName;
  EXPECT_EQ(length(name), 3);
  EXPECT_STREQ(name->className->name, "A");
  EXPECT_STREQ(name->keyBindings->keyValue->text, "1");
  EXPECT_STREQ(name->next->className->name, "B");
  const LocalInstancePath* path = name->next->keyBindings->valueReference->localInstancePath;
  EXPECT_STREQ(path->localNamespacePath->namespaces->name, "root");
  EXPECT_STREQ(path->localNamespacePath->namespaces->next->name, "cimv2");
  EXPECT_STREQ(path->instanceName->className->name, "C");
  EXPECT_STREQ(name->next->next->className->name, "D");
}

TEST_F(Answers, class_names_and_classes_in_order) {
  const Tree tree = read(answer_of("EnumerateClassNames", R"(<IRETURNVALUE>
<CLASSNAME NAME="A"/>
<CLASS NAME="X"/>
<CLASSNAME NAME="B"/>
<CLASS NAME="Y"/>
<CLASSNAME NAME="C"/>
</IRETURNVALUE>
)"));
  const ClassName* name = returned(tree).className;
  EXPECT_STREQ(name->name, "A");
  EXPECT_STREQ(name->next->name, "B");
  EXPECT_STREQ(name->next->next->name, "C");
  EXPECT_EQ(length(name), 3);
  EXPECT_STREQ(returned(tree).class_->name, "X");
  EXPECT_STREQ(returned(tree).class_->next->name, "Y");
}

TEST_F(Answers, objects_with_paths) {
  const Tree tree = read(answer_of("Associators", R"(<IRETURNVALUE>
<VALUE.OBJECTWITHPATH>
<INSTANCEPATH>
<NAMESPACEPATH>
<HOST>10.0.0.1</HOST>
<LOCALNAMESPACEPATH>
<NAMESPACE NAME="root"></NAMESPACE>
<NAMESPACE NAME="cimv2"></NAMESPACE>
</LOCALNAMESPACEPATH>
</NAMESPACEPATH>
<INSTANCENAME CLASSNAME="CIM_Card">
<KEYBINDING NAME="Tag">
<KEYVALUE VALUETYPE="string">c</KEYVALUE>
</KEYBINDING>
</INSTANCENAME>
</INSTANCEPATH>
<INSTANCE CLASSNAME="CIM_Card">
<PROPERTY NAME="Tag" TYPE="string">
<VALUE>c</VALUE>
</PROPERTY>
</INSTANCE>
</VALUE.OBJECTWITHPATH>
<VALUE.OBJECTWITHPATH>
<CLASSPATH>
<NAMESPACEPATH>
<HOST>h</HOST>
<LOCALNAMESPACEPATH>
<NAMESPACE NAME="root"/>
</LOCALNAMESPACEPATH>
</NAMESPACEPATH>
<CLASSNAME NAME="CIM_Fan"/>
</CLASSPATH>
<CLASS NAME="CIM_Fan"/>
</VALUE.OBJECTWITHPATH>
</IRETURNVALUE>
)"));
  const ObjectWithPath* object = returned(tree).objectWithPath;
  EXPECT_EQ(length(object), 2);
  const NamespacePath* place = object->instancePath->namespacePath;
  EXPECT_STREQ(place->host, "10.0.0.1");
  EXPECT_STREQ(place->localNamespacePath->namespaces->name, "root");
  EXPECT_STREQ(place->localNamespacePath->namespaces->next->name, "cimv2");
  EXPECT_STREQ(object->instancePath->instanceName->className->name, "CIM_Card");
  EXPECT_STREQ(object->instancePath->instanceName->keyBindings->keyValue->text, "c");
  EXPECT_STREQ(object->instance->properties->value->text, "c");
  EXPECT_FALSE(object->class_);
  EXPECT_STREQ(object->next->classPath->className->name, "CIM_Fan");
  EXPECT_STREQ(object->next->classPath->namespacePath->host, "h");
  EXPECT_STREQ(object->next->class_->name, "CIM_Fan");
  EXPECT_FALSE(object->next->instance);
}

TEST_F(Answers, object_paths) {
  const Tree tree = read(answer_of("AssociatorNames", R"(<IRETURNVALUE>
<OBJECTPATH>
<INSTANCEPATH>
<NAMESPACEPATH>
<HOST>h</HOST>
<LOCALNAMESPACEPATH>
<NAMESPACE NAME="root"/>
</LOCALNAMESPACEPATH>
</NAMESPACEPATH>
<INSTANCENAME CLASSNAME="A"/>
</INSTANCEPATH>
</OBJECTPATH>
<OBJECTPATH>
<CLASSPATH>
<CLASSNAME NAME="B"/>
</CLASSPATH>
</OBJECTPATH>
</IRETURNVALUE>
)"));
  const ObjectPath* path = returned(tree).objectPath;
  EXPECT_EQ(length(path), 2);
  EXPECT_STREQ(path->instancePath->instanceName->className->name, "A");
  EXPECT_STREQ(path->instancePath->namespacePath->host, "h");
  EXPECT_FALSE(path->classPath);
  EXPECT_STREQ(path->next->classPath->className->name, "B");
}

}  // namespace

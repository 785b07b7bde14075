// Typed values as records, checked against the class.
#include "typed_values.h"

#include <gtest/gtest.h>

#include "exit_status.h"
#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

Qualifier* qualifier(const char* name, const char* type, const char* value) {
  auto* record = new_record<Qualifier>();
  record->name = new_text(name);
  record->type = new_text(type);
  AddToValueList(&record->value, value);
  return record;
}

// CIM_Setting: a plain property, an array, and a reference.
ClassOwner setting_class() {
  ClassOwner definition(new_record<Class>());
  definition->name = new_text("CIM_Setting");
  definition->properties = new_record<Property>();
  definition->properties->name = new_text("Speed");
  definition->properties->type = new_text("uint32");
  definition->propertyArrays = new_record<PropertyArray>();
  definition->propertyArrays->name = new_text("Steps");
  definition->propertyArrays->type = new_text("uint16");
  definition->propertyReferences = new_record<PropertyReference>();
  definition->propertyReferences->name = new_text("Fan");
  definition->propertyReferences->referenceClass = new_text("CIM_Fan");
  return definition;
}

// The sample fan with an embedded property "Setting".
ClassOwner fan_class() {
  ClassOwner definition = samples::fan_class();
  auto* setting = new_record<Property>();
  setting->name = new_text("Setting");
  setting->type = new_text("string");
  setting->qualifiers = qualifier("EmbeddedInstance", "string", "CIM_Setting");
  append(&definition->properties, setting);
  return definition;
}

ClassOwner classes(const std::string& name) {
  if (name == "CIM_Setting") return setting_class();
  if (name == "CIM_Fan") return fan_class();
  throw Failure(ExitStatus::CimError, "no class " + name);
}

std::string sent(Instance* instance) {
  char* text = nullptr;
  Gen_Instance(instance, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

std::string sent(ParamValue* list) {
  char* text = nullptr;
  Gen_ParamValue(list, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

// The elements that are written for a fan with these assignments.
std::string fan(const std::vector<Assignment>& assignments) {
  return sent(make_instance(*fan_class(), assignments, classes).get());
}

std::string parameters(const std::vector<Assignment>& assignments) {
  const ClassOwner definition = fan_class();
  return sent(make_parameters(*definition->methods, assignments, classes).get());
}

template <class Action>
std::string refusal(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  return "not refused";
}

TEST(TypedValues, properties_get_the_classes_spelling_and_type) {
  EXPECT_EQ(fan({{"deviceid", "fan1"}, {"DESIREDSPEED", "0x10"}}),
            "<INSTANCE CLASSNAME=\"CIM_Fan\">"
            "<PROPERTY NAME=\"DeviceID\" TYPE=\"string\"><VALUE>fan1</VALUE></PROPERTY>"
            "<PROPERTY NAME=\"DesiredSpeed\" TYPE=\"uint64\"><VALUE>16</VALUE></PROPERTY>"
            "</INSTANCE>");
}

TEST(TypedValues, null_sends_a_property_without_value) {
  EXPECT_EQ(fan({{"DeviceID", "null"}, {"OperationalStatus", "null"}, {"Chassis", "null"}}),
            "<INSTANCE CLASSNAME=\"CIM_Fan\">"
            "<PROPERTY NAME=\"DeviceID\" TYPE=\"string\"></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"OperationalStatus\" TYPE=\"uint16\"></PROPERTY.ARRAY>"
            "<PROPERTY.REFERENCE NAME=\"Chassis\" REFERENCECLASS=\"CIM_Chassis\">"
            "</PROPERTY.REFERENCE></INSTANCE>");
}

TEST(TypedValues, arrays_come_in_brackets_or_add_up) {
  const std::string expected =
      "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY.ARRAY NAME=\"OperationalStatus\" "
      "TYPE=\"uint16\"><VALUE.ARRAY><VALUE>2</VALUE><VALUE>5</VALUE></VALUE.ARRAY>"
      "</PROPERTY.ARRAY></INSTANCE>";
  EXPECT_EQ(fan({{"OperationalStatus", "[2,5]"}}), expected);
  EXPECT_EQ(fan({{"OperationalStatus", "2"}, {"OperationalStatus", "5"}}), expected);
}

TEST(TypedValues, an_empty_array_is_not_null) {
  EXPECT_EQ(fan({{"OperationalStatus", "[]"}}),
            "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY.ARRAY NAME=\"OperationalStatus\" "
            "TYPE=\"uint16\"><VALUE.ARRAY></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE>");
}

TEST(TypedValues, references_are_paths) {
  EXPECT_EQ(fan({{"Chassis", "CIM_Chassis.Tag=\"c1\""}}),
            "<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY.REFERENCE NAME=\"Chassis\" "
            "REFERENCECLASS=\"CIM_Chassis\"><VALUE.REFERENCE><INSTANCENAME "
            "CLASSNAME=\"CIM_Chassis\"><KEYBINDING NAME=\"Tag\"><KEYVALUE VALUETYPE = "
            "\"string\">c1</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE>"
            "</PROPERTY.REFERENCE></INSTANCE>");
}

TEST(TypedValues, a_reference_key_inside_a_reference_is_told_by_its_class) {
  EXPECT_NE(fan({{"Chassis", R"(CIM_Setting.Fan="CIM_Fan.DeviceID=\"f\"")"}})
                .find("<KEYBINDING NAME=\"Fan\"><VALUE.REFERENCE>"),
            std::string::npos);
}

TEST(TypedValues, embedded_instances_are_checked_against_their_own_class) {
  const InstanceOwner instance =
      make_instance(*fan_class(), {{"Setting", "CIM_Setting{speed=800, Steps=[3]}"}}, classes);
  const Value* value = instance->properties->value;
  EXPECT_EQ(value->isCData, 1);
  EXPECT_STREQ(value->instance->className->name, "CIM_Setting");
  EXPECT_STREQ(value->instance->properties->name, "Speed");
  EXPECT_EQ(refusal([] {
              fan({{"Setting", "CIM_Setting{Speed=-1}"}});
            }),
            "Speed: \"-1\" does not fit uint32 (0 to 4294967295)");
  EXPECT_EQ(refusal([] {
              fan({{"Setting", "quiet"}});
            }),
            "quiet is no embedded instance; CLASS{NAME=VALUE, NAME=VALUE} is");
}

TEST(TypedValues, what_the_writer_would_lose_of_an_embedded_instance_is_refused) {
  const std::string arrays =
      "Steps: inside an embedded instance an array can be sent with one element only";
  EXPECT_EQ(refusal([] { fan({{"Setting", "CIM_Setting{Steps=[3,4]}"}}); }), arrays);
  EXPECT_EQ(refusal([] { fan({{"Setting", "CIM_Setting{Steps=[]}"}}); }), arrays);
  EXPECT_EQ(refusal([] {
              fan({{"Setting", "CIM_Setting{Fan=CIM_Fan.DeviceID=f}"}});
            }),
            "Fan: inside an embedded instance a reference cannot be sent");
}

TEST(TypedValues, unknown_names_are_refused_with_the_known_ones) {
  EXPECT_EQ(refusal([] {
              fan({{"Speed", "5"}});
            }),
            "CIM_Fan has no property Speed; it has: DeviceID, DesiredSpeed, Setting, "
            "OperationalStatus, Chassis");
}

TEST(TypedValues, a_second_value_for_a_scalar_is_refused) {
  EXPECT_EQ(refusal([] {
              fan({{"DeviceID", "a"}, {"deviceid", "b"}});
            }),
            "deviceid is given twice, and is no array");
}

TEST(TypedValues, values_are_checked_by_type_element_by_element) {
  EXPECT_EQ(refusal([] {
              fan({{"DesiredSpeed", "fast"}});
            }),
            "DesiredSpeed: \"fast\" is no integer, as uint64 needs");
  EXPECT_EQ(refusal([] {
              fan({{"OperationalStatus", "[2,70000]"}});
            }),
            "OperationalStatus: \"70000\" does not fit uint16 (0 to 65535)");
  EXPECT_EQ(refusal([] {
              fan({{"OperationalStatus", "[2,null]"}});
            }),
            "OperationalStatus: an element of an array cannot be null");
}

TEST(TypedValues, parameters_of_every_kind_are_made) {
  EXPECT_EQ(parameters({{"DesiredSpeed", "5"},
                        {"Sensor", "CIM_Sensor.K=1"},
                        {"Steps", "[1]"},
                        {"Followers", "[CIM_Fan.K=1, CIM_Fan.K=2]"}}),
            "<PARAMVALUE NAME=\"DesiredSpeed\" PARAMTYPE=\"uint64\"><VALUE>5</VALUE></PARAMVALUE>"
            "<PARAMVALUE NAME=\"Sensor\" PARAMTYPE=\"reference\"><VALUE.REFERENCE><INSTANCENAME "
            "CLASSNAME=\"CIM_Sensor\"><KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE = "
            "\"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE></PARAMVALUE>"
            "<PARAMVALUE NAME=\"Steps\" PARAMTYPE=\"uint16\"><VALUE.ARRAY><VALUE>1</VALUE>"
            "</VALUE.ARRAY></PARAMVALUE>"
            "<PARAMVALUE NAME=\"Followers\" PARAMTYPE=\"reference\"><VALUE.REFARRAY>"
            "<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"K\">"
            "<KEYVALUE VALUETYPE = \"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME>"
            "</VALUE.REFERENCE><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"CIM_Fan\">"
            "<KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE = \"numeric\">2</KEYVALUE></KEYBINDING>"
            "</INSTANCENAME></VALUE.REFERENCE></VALUE.REFARRAY></PARAMVALUE>");
}

TEST(TypedValues, an_output_parameter_without_in_is_an_input_as_well_unless_in_is_false) {
  const ClassOwner definition = fan_class();
  Parameter* reached = definition->methods->parameters->next;
  append(&reached->qualifiers, qualifier("In", "boolean", "FALSE"));
  EXPECT_EQ(refusal([&] {
              make_parameters(*definition->methods, {{"Reached", "true"}}, classes);
            }),
            "SetSpeed has no input parameter Reached; it has: DesiredSpeed, Sensor, Steps, "
            "Followers");
}

TEST(TypedValues, without_assignments_there_are_no_parameters) {
  const ClassOwner definition = fan_class();
  EXPECT_EQ(make_parameters(*definition->methods, {}, classes), nullptr);
}

}  // namespace
}  // namespace cli

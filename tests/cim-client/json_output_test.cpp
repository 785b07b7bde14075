// Results as JSON.
#include "json_output.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "object_path.h"
#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

using Parsed = nlohmann::ordered_json;

// What `show` writes.
template <class Show>
std::string written(Show show, const OutputSettings& settings = {}) {
  std::ostringstream out;
  show(*make_json_output(settings, out));
  return out.str();
}

TEST(JsonOutput, lists_hold_one_element_per_line) {
  const ClassNameOwner names(CIMC_CreateClassName("CIM_A"));
  names->next = CIMC_CreateClassName("CIM_B");
  EXPECT_EQ(written([&](Output& output) { output.class_names(names.get()); }),
            "[\n\"CIM_A\",\n\"CIM_B\"\n]\n");
}

TEST(JsonOutput, nothing_found_is_an_empty_array) {
  EXPECT_EQ(written([](Output& output) { output.instances(nullptr); }), "[]\n");
  EXPECT_EQ(written([](Output& output) { output.paths({}); }), "[]\n");
}

TEST(JsonOutput, an_instance_keeps_types_and_gives_64_bit_numbers_as_texts) {
  const NamedInstanceOwner fans = samples::two_fans();
  const Parsed list = Parsed::parse(written([&](Output& output) { output.instances(fans.get()); }));
  EXPECT_EQ(list.at(1), Parsed::parse(R"({
    "path": {"uri": "CIM_Fan.DeviceID=\"fan2\"", "class": "CIM_Fan",
             "keys": {"DeviceID": {"type": "string", "value": "fan2"}}},
    "class": "CIM_Fan",
    "properties": {
      "DeviceID": {"type": "string", "value": "fan2"},
      "DesiredSpeed": {"type": "uint64", "value": "18446744073709551615"},
      "VariableSpeed": {"type": "boolean", "value": true},
      "Caption": {"type": "string", "value": null},
      "OperationalStatus": {"type": "uint16", "array": true, "value": [2, 5]}}})"));
}

TEST(JsonOutput, chosen_properties_alone_are_written) {
  const NamedInstanceOwner fan(samples::fan("fan1", "5"));
  OutputSettings settings;
  settings.properties = {"DesiredSpeed"};
  const Parsed object = Parsed::parse(written(
      [&](Output& output) { output.instance(*fan->instanceName, *fan->instance); }, settings));
  EXPECT_EQ(object.at("properties").size(), 1U);
  EXPECT_EQ(object.at("properties").at("DesiredSpeed").at("value"), "5");
}

// The JSON value of a property of the given type and text.
Parsed value_of(const char* type, const char* text) {
  const NamedInstanceOwner named(new_record<NamedInstance>());
  named->instanceName = samples::instance_name("CIM_X", {}).release();
  named->instance = new_record<Instance>();
  const TextOwner copy(new_text(text));
  AddToProeprtyList(&named->instance->properties, "P", copy.get(), type);
  const Parsed list =
      Parsed::parse(written([&](Output& output) { output.instances(named.get()); }));
  return list.at(0).at("properties").at("P").at("value");
}

TEST(JsonOutput, each_cim_type_has_its_json_type) {
  EXPECT_EQ(value_of("uint8", "255"), 255);
  EXPECT_EQ(value_of("uint32", "4294967295"), 4294967295U);
  EXPECT_EQ(value_of("sint32", "-2147483648"), -2147483648LL);
  EXPECT_EQ(value_of("sint16", "+5"), 5);
  EXPECT_EQ(value_of("uint64", "5"), "5");
  EXPECT_EQ(value_of("sint64", "-9223372036854775808"), "-9223372036854775808");
  EXPECT_EQ(value_of("real32", "1.5"), 1.5);
  EXPECT_EQ(value_of("real64", "1.0e-300"), 1.0e-300);
  EXPECT_EQ(value_of("boolean", "FALSE"), false);
  EXPECT_EQ(value_of("char16", "x"), "x");
  EXPECT_EQ(value_of("datetime", "20240131235959.000000+060"), "20240131235959.000000+060");
  EXPECT_EQ(value_of("string", "5"), "5");
}

TEST(JsonOutput, a_value_that_does_not_fit_its_type_is_the_text_as_it_came) {
  EXPECT_EQ(value_of("uint8", "many"), "many");
  EXPECT_EQ(value_of("uint32", "0x1F"), "0x1F");
  EXPECT_EQ(value_of("boolean", "maybe"), "maybe");
  EXPECT_EQ(value_of("real32", "NaN"), "NaN");
  EXPECT_EQ(value_of("uint8", ""), "");
}

TEST(JsonOutput, bytes_that_are_no_utf8_do_not_break_the_output) {
  EXPECT_EQ(value_of("string", "caf\xE9"), "caf\xEF\xBF\xBD");
}

TEST(JsonOutput, references_are_paths) {
  const NamedInstanceOwner named(new_record<NamedInstance>());
  named->instance = new_record<Instance>();
  named->instance->className = CIMC_CreateClassName("CIM_Has");
  auto* property = new_record<PropertyReference>();
  property->name = new_text("Part");
  property->referenceClass = new_text("CIM_Fan");
  property->valueReference =
      samples::reference("device", "root/cimv2", "CIM_Fan", {{"DeviceID", "fan1"}}).release();
  named->instance->propertyReferences = property;
  const Parsed list =
      Parsed::parse(written([&](Output& output) { output.instances(named.get()); }));
  EXPECT_EQ(list.at(0), Parsed::parse(R"({
    "class": "CIM_Has",
    "properties": {"Part": {"type": "reference", "class": "CIM_Fan", "value": {
      "uri": "//device/root/cimv2:CIM_Fan.DeviceID=\"fan1\"",
      "host": "device", "namespace": "root/cimv2", "class": "CIM_Fan",
      "keys": {"DeviceID": {"type": "string", "value": "fan1"}}}}}})"));
}

TEST(JsonOutput, keys_keep_their_kind_and_numbers_stay_texts) {
  ObjectUri path = parse_object(R"(CIM_X.A=5,B=true,C="CIM_Fan.K=\"1\"")");
  path.keys[2].kind = Key::Kind::Reference;
  const InstanceNameOwner name = make_instance_name(path);
  const Parsed object = Parsed::parse(written([&](Output& output) { output.created(*name); }));
  EXPECT_EQ(object.at("keys"), Parsed::parse(R"({
    "A": {"type": "numeric", "value": "5"},
    "B": {"type": "boolean", "value": true},
    "C": {"type": "reference", "value": {
      "uri": "CIM_Fan.K=\"1\"", "class": "CIM_Fan",
      "keys": {"K": {"type": "string", "value": "1"}}}}})"));
}

TEST(JsonOutput, embedded_instances_are_objects_and_their_arrays_are_said_to_be_unread) {
  const NamedInstanceOwner named(new_record<NamedInstance>());
  named->instance = new_record<Instance>();
  auto* property = new_record<Property>();
  property->name = new_text("Setting");
  property->type = new_text("string");
  property->value = new_record<Value>();
  property->value->instance = samples::embedded_setting();
  named->instance->properties = property;
  const Parsed list =
      Parsed::parse(written([&](Output& output) { output.instances(named.get()); }));
  EXPECT_EQ(list.at(0).at("properties").at("Setting").at("value"), Parsed::parse(R"({
    "class": "CIM_FanSetting",
    "properties": {
      "InstanceID": {"type": "string", "value": "quiet"},
      "Speed": {"type": "uint32", "value": 800},
      "Steps": {"type": "uint16", "array": true, "value": null, "unread": true}}})"));
}

TEST(JsonOutput, a_class_is_written_with_qualifiers_and_methods) {
  const ClassOwner fan = samples::fan_class();
  const Parsed object =
      Parsed::parse(written([&](Output& output) { output.class_definition(*fan); }));
  EXPECT_EQ(object, Parsed::parse(R"({
    "class": "CIM_Fan",
    "superclass": "CIM_CoolingDevice",
    "qualifiers": {"Version": {"type": "string", "value": "2.6.0"}},
    "properties": {
      "DeviceID": {"type": "string", "value": null, "origin": "CIM_LogicalDevice", "qualifiers": {
        "Key": {"type": "boolean", "value": true}, "MaxLen": {"type": "uint32", "value": 64}}},
      "DesiredSpeed": {"type": "uint64", "value": "1000"},
      "OperationalStatus": {"type": "uint16", "array": true, "value": null, "qualifiers": {
        "Values": {"type": "string", "array": true, "value": ["OK", "Degraded"]}}},
      "Chassis": {"type": "reference", "class": "CIM_Chassis", "value": null}},
    "methods": {"SetSpeed": {
      "type": "uint32",
      "qualifiers": {"Description": {"type": "string", "value": "Sets the \"speed\"."}},
      "parameters": {
        "DesiredSpeed": {"type": "uint64", "qualifiers": {"In": {"type": "boolean", "value": true}}},
        "Reached": {"type": "boolean", "qualifiers": {"Out": {"type": "boolean", "value": true}}},
        "Sensor": {"type": "reference", "class": "CIM_Sensor", "qualifiers": {}},
        "Steps": {"type": "uint16", "array": true, "size": 4, "qualifiers": {}},
        "Followers": {"type": "reference", "array": true, "class": "CIM_Fan",
                      "qualifiers": {}}}}}})"));
}

TEST(JsonOutput, a_root_class_has_a_null_superclass) {
  const ClassOwner root(new_record<Class>());
  root->name = new_text("CIM_Root");
  const Parsed list = Parsed::parse(written([&](Output& output) { output.classes(root.get()); }));
  EXPECT_EQ(list.at(0).at("superclass"), nullptr);
}

TEST(JsonOutput, a_method_gives_its_return_value_and_parameters) {
  const std::unique_ptr<ReturnValue, Release<Free_ReturnValue>> result(new_record<ReturnValue>());
  result->paramType = new_text("uint32");
  AddToValueList(&result->value, "4294967295");
  const ParamValueOwner parameter(new_record<ParamValue>());
  parameter->name = new_text("Followers");
  parameter->paramType = new_text("reference");
  parameter->valueRefArray = new_record<ValueRefArray>();
  parameter->valueRefArray->valueReferences =
      samples::reference("", "", "CIM_Fan", {{"K", "1"}}).release();
  const Parsed object = Parsed::parse(written([&](Output& output) {
    output.method_result({result.get(), parameter.get()});
  }));
  EXPECT_EQ(object, Parsed::parse(R"({
    "returnValue": {"type": "uint32", "value": 4294967295},
    "parameters": {"Followers": {"type": "reference", "array": true, "value": [
      {"uri": "CIM_Fan.K=\"1\"", "class": "CIM_Fan",
       "keys": {"K": {"type": "string", "value": "1"}}}]}}})"));
}

TEST(JsonOutput, a_method_without_return_value_says_null) {
  EXPECT_EQ(Parsed::parse(written([](Output& output) {
              output.method_result({nullptr, nullptr});
            })),
            Parsed::parse(R"({"returnValue": null, "parameters": {}})"));
}

TEST(JsonOutput, objects_are_instances_or_classes_with_their_paths) {
  const ObjectWithPathOwner list(new_record<ObjectWithPath>());
  const ValueReferenceOwner reference = samples::reference("h", "root", "CIM_Root", {});
  std::swap(list->classPath, reference->classPath);
  list->class_ = new_record<Class>();
  list->class_->name = new_text("CIM_Root");
  list->next = new_record<ObjectWithPath>();
  list->next->instance = new_record<Instance>();
  list->next->instance->className = CIMC_CreateClassName("CIM_X");
  const Parsed parsed = Parsed::parse(written([&](Output& output) { output.objects(list.get()); }));
  EXPECT_EQ(parsed.at(0).at("path").at("uri"), "//h/root:CIM_Root");
  EXPECT_EQ(parsed.at(0).at("definition").at("class"), "CIM_Root");
  EXPECT_EQ(parsed.at(1), Parsed::parse(R"({"class": "CIM_X", "properties": {}})"));
}

TEST(JsonOutput, an_indication_is_one_line) {
  const NamedInstanceOwner fan(samples::fan("fan1", "5"));
  const std::string text = written([&](Output& output) { output.indication(*fan->instance); });
  EXPECT_EQ(text.find('\n'), text.size() - 1);
  EXPECT_EQ(Parsed::parse(text).at("class"), "CIM_Fan");
}

}  // namespace
}  // namespace cli

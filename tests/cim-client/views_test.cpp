// Views of the library's records.
#include "views.h"

#include <gtest/gtest.h>

#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

std::vector<std::string> names_of(const std::vector<TypedView>& views) {
  std::vector<std::string> names;
  for (const TypedView& view : views)
    names.push_back(std::string(view.name) + ":" + std::string(view.type));
  return names;
}

using Names = std::vector<std::string>;

TEST(Views, an_instance_shows_plain_properties_then_arrays) {
  const NamedInstanceOwner fans = samples::two_fans();
  const auto views = properties_of(*fans->instance);
  EXPECT_EQ(names_of(views),
            (Names{"DeviceID:string", "DesiredSpeed:uint64", "VariableSpeed:boolean",
                   "Caption:string", "OperationalStatus:uint16"}));
  EXPECT_FALSE(views[0].is_null());
  EXPECT_TRUE(views[3].is_null());
  EXPECT_TRUE(views[4].is_array);
}

TEST(Views, a_class_shows_every_kind_of_property_with_its_shape) {
  const ClassOwner fan = samples::fan_class();
  const auto views = properties_of(*fan);
  EXPECT_EQ(names_of(views), (Names{"DeviceID:string", "DesiredSpeed:uint64",
                                    "OperationalStatus:uint16", "Chassis:reference"}));
  EXPECT_EQ(views[0].class_origin, "CIM_LogicalDevice");
  EXPECT_TRUE(views[3].is_reference);
  EXPECT_EQ(views[3].reference_class, "CIM_Chassis");
}

TEST(Views, a_method_shows_parameters_by_kind) {
  const ClassOwner fan = samples::fan_class();
  const auto views = parameters_of(*fan->methods);
  EXPECT_EQ(names_of(views), (Names{"DesiredSpeed:uint64", "Reached:boolean", "Sensor:reference",
                                    "Steps:uint16", "Followers:reference"}));
  EXPECT_EQ(views[3].array_size, 4);
  EXPECT_TRUE(views[4].is_array && views[4].is_reference);
}

TEST(Views, the_records_of_an_embedded_property_become_one) {
  const InstanceOwner setting(samples::embedded_setting());
  const auto views = embedded_properties_of(*setting);
  EXPECT_EQ(names_of(views), (Names{"InstanceID:string", "Speed:uint32", "Steps:uint16"}));
  EXPECT_STREQ(views[0].value->text, "quiet");
  EXPECT_TRUE(views[2].unread) << "the library reads no values of embedded arrays";
}

TEST(Views, embedded_properties_join_whatever_the_order_of_their_attributes) {
  const InstanceOwner instance(new_record<Instance>());
  const auto add = [&instance](const char* name, const char* type) {
    auto* record = new_record<Property>();
    if (name != nullptr) record->name = new_text(name);
    if (type != nullptr) record->type = new_text(type);
    append(&instance->properties, record);
  };
  add(nullptr, "uint8");  // TYPE before NAME
  add("A", nullptr);
  add(nullptr, "string");
  add("B", nullptr);
  add(nullptr, nullptr);  // an attribute that is neither
  EXPECT_EQ(names_of(embedded_properties_of(*instance)), (Names{"A:uint8", "B:string"}));
}

TEST(Views, every_name_below_one_instance_path_is_a_path) {
  const ObjectPathOwner wrapped(new_record<ObjectPath>());
  wrapped->instancePath = new_record<InstancePath>();
  InstanceNameOwner first = samples::instance_name("CIM_A", {{"K", "1"}});
  first->next = samples::instance_name("CIM_B", {{"K", "2"}}).release();
  wrapped->instancePath->instanceName = first.release();
  const auto paths = paths_of(wrapped.get());
  ASSERT_EQ(paths.size(), 2U);
  EXPECT_EQ(class_of(*paths[0].instance), "CIM_A");
  EXPECT_EQ(class_of(*paths[1].instance), "CIM_B");
}

TEST(Views, parameters_of_every_kind_keep_their_values) {
  const ParamValueOwner parameter(new_record<ParamValue>());
  parameter->name = new_text("Followers");
  parameter->valueRefArray = new_record<ValueRefArray>();
  const auto views = views_of(parameter.get());
  ASSERT_EQ(views.size(), 1U);
  EXPECT_TRUE(views[0].is_array && views[0].is_reference);
  EXPECT_FALSE(views[0].is_null());
}

TEST(Views, records_without_names_give_empty_names) {
  const InstanceOwner instance(new_record<Instance>());
  append(&instance->properties, new_record<Property>());
  EXPECT_EQ(properties_of(*instance)[0].name, "");
  EXPECT_EQ(class_of(*instance), "");
}

}  // namespace
}  // namespace cli

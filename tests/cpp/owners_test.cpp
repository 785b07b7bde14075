// The owners, ranges and builders of the C++ header.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "cim_client.hpp"
#include "support/allocations.h"

namespace {

using namespace cim_client;  // NOLINT(google-build-using-namespace): as programs do

Owner<Property> two_properties() {
  Owner<Property> list;
  EXPECT_TRUE(add_property(list, "Speed", std::uint64_t{2000}));
  EXPECT_TRUE(add_property(list, "ElementName", "front fan"));
  return list;
}

std::vector<std::string> names(const Owner<Property>& list) {
  std::vector<std::string> result;
  for (const Property& property : list) result.emplace_back(property.name);
  return result;
}

using Names = std::vector<std::string>;

TEST(Owners, are_moved_and_never_copied) {
  static_assert(!std::is_copy_constructible_v<Owner<Property>>);
  static_assert(!std::is_copy_assignable_v<Owner<Property>>);
  static_assert(std::is_nothrow_move_constructible_v<Owner<Property>>);
  Owner<Property> first = two_properties();
  Owner<Property> second = std::move(first);
  EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): that it is empty is promised
  EXPECT_EQ(names(second), (Names{"Speed", "ElementName"}));
}

TEST(Owners, release_the_whole_list) {
  const long before = support::living_blocks();
  {
    const Owner<Property> list = two_properties();
    EXPECT_GT(support::living_blocks(), before);
  }
  EXPECT_EQ(support::living_blocks(), before);
}

TEST(Owners, release_what_they_held_when_they_take_over_another) {
  const long before = support::living_blocks();
  {
    Owner<Property> list = two_properties();
    list = two_properties();
    EXPECT_EQ(names(list), (Names{"Speed", "ElementName"}));
    Owner<Property>& same = list;
    list = std::move(same);
    EXPECT_EQ(names(list), (Names{"Speed", "ElementName"}));
    list.reset(list.get());
    EXPECT_EQ(names(list), (Names{"Speed", "ElementName"}));
  }
  EXPECT_EQ(support::living_blocks(), before);
}

TEST(Owners, give_away_what_a_c_function_takes) {
  Owner<Property> list = two_properties();
  Property* raw = list.release();
  EXPECT_FALSE(list);
  ASSERT_NE(raw, nullptr);
  Free_Property(raw);
}

TEST(Owners, take_the_first_node_off_a_list) {
  Owner<Property> list = two_properties();
  const Owner<Property> first = list.take_first();
  EXPECT_EQ(names(first), Names{"Speed"});
  EXPECT_EQ(names(list), Names{"ElementName"});
  list.take_first().reset();
  EXPECT_FALSE(list.take_first());
}

TEST(Owners, of_handles_release_them) {
  const long before = support::living_blocks();
  {
    const Client client("127.0.0.1", 5988, "root/cimv2", "user", "password");
    ASSERT_TRUE(client);
    EXPECT_STREQ(client.handle()->namespace_, "root/cimv2");
    EXPECT_FALSE(Client("127.0.0.1", 5988, "root/cimv2", nullptr, "password"));
  }
  EXPECT_EQ(support::living_blocks(), before);
}

TEST(Owners, of_requests_leave_the_borrowed_parameters) {
  const Owner<Value> value = make<Value>();
  ASSERT_TRUE(value);
  {
    const Owner<IParamValue> parameter = make<IParamValue>();
    ASSERT_TRUE(parameter);
    parameter->value = value.get();
  }
  EXPECT_EQ(value->text, nullptr);
}

TEST(Ranges, of_an_empty_list_have_no_node) {
  const Owner<Property> nothing;
  EXPECT_EQ(nothing.begin(), nothing.end());
  EXPECT_TRUE(nodes(nothing.get()).empty());
  EXPECT_EQ(nodes(nothing.get()).size(), 0U);
}

TEST(Ranges, let_the_nodes_be_changed) {
  const Owner<Property> list = two_properties();
  for (Property& property : list) property.propagated = 1;
  for (const Property& property : nodes(list.get())) EXPECT_EQ(property.propagated, 1);
  EXPECT_EQ(nodes(list.get()).size(), 2U);
}

TEST(Ranges, find_names_in_any_case) {
  const Owner<Property> list = two_properties();
  EXPECT_EQ(find(list.get(), "elementNAME"), list->next);
  EXPECT_EQ(find(list.get(), "Element"), nullptr);
  EXPECT_EQ(find(list.get(), ""), nullptr);
}

TEST(Ranges, pass_over_nodes_without_a_name) {
  Owner<Property> list = make<Property>();
  append(list, two_properties());
  EXPECT_EQ(find(list.get(), "Speed"), list->next);
}

TEST(Copies, are_whole_lists_of_their_own) {
  const Owner<Property> original = two_properties();
  const Owner<Property> copied = copy(original.get());
  EXPECT_EQ(names(copied), (Names{"Speed", "ElementName"}));
  EXPECT_NE(copied->name, original->name);
  EXPECT_FALSE(copy<Property>(nullptr));
}

TEST(Copies, that_run_out_of_memory_are_nothing_and_leave_nothing) {
  const Owner<Property> original = two_properties();
  const long before = support::living_blocks();
  const std::size_t allocations =
      support::fail_each_allocation([&] { const Owner<Property> copied = copy(original.get()); },
                                    [&] { EXPECT_EQ(support::living_blocks(), before); });
  EXPECT_GT(allocations, 2U);
}

TEST(Alone, cuts_a_node_off_for_a_while) {
  const Owner<Property> list = two_properties();
  Property* const second = list->next;
  {
    const Alone<Property> alone(*list);
    EXPECT_EQ(list->next, nullptr);
  }
  EXPECT_EQ(list->next, second);
}

std::string written(InstanceName* name) {
  Text text;
  Gen_InstanceName(name, text.list());
  return text ? text.get() : "";
}

TEST(Builders, make_instance_names) {
  Owner<KeyBinding> keys;
  ASSERT_TRUE(add_key(keys, "DeviceID", "fan1"));
  ASSERT_TRUE(add_key(keys, "Index", std::uint16_t{3}));
  ASSERT_TRUE(add_key(keys, "Active", true));
  const Owner<InstanceName> name = make_instance_name("CIM_Fan", std::move(keys));
  ASSERT_TRUE(name);
  EXPECT_EQ(class_of(*name), "CIM_Fan");
  EXPECT_EQ(get<std::string_view>(*name, "deviceid"), "fan1");
  EXPECT_EQ(get<int>(*name, "Index"), 3);
  EXPECT_EQ(get<bool>(*name, "Active"), true);
  std::vector<std::string> kinds;
  for (const KeyBinding& key : nodes(name->keyBindings))
    kinds.emplace_back(key.keyValue->valueType);
  EXPECT_EQ(kinds, (Names{"string", "numeric", "boolean"}));
  EXPECT_NE(written(name.get()).find("CIM_Fan"), std::string::npos);
}

TEST(Builders, refuse_an_instance_name_without_a_class) {
  const long before = support::living_blocks();
  {
    Owner<KeyBinding> keys;
    ASSERT_TRUE(add_key(keys, "DeviceID", "fan1"));
    EXPECT_FALSE(make_instance_name(nullptr, std::move(keys)));
  }
  EXPECT_EQ(support::living_blocks(), before);
}

TEST(Builders, make_instances) {
  Owner<PropertyArray> arrays;
  ASSERT_TRUE(add_array(arrays, "Levels", std::vector<std::int16_t>{-1, 0, 1}));
  Owner<Property> properties = two_properties();
  ASSERT_TRUE(add_null_property(properties, "Limit", "uint32"));
  Owner<Instance> instance = make_instance("CIM_Fan", std::move(properties), std::move(arrays));
  ASSERT_TRUE(instance);
  EXPECT_EQ(class_of(*instance), "CIM_Fan");
  EXPECT_STREQ(find(instance->properties, "Speed")->type, "uint64");
  EXPECT_STREQ(find(instance->properties, "ElementName")->type, "string");
  EXPECT_EQ(get<int>(*instance, "Speed"), 2000);
  EXPECT_EQ(get<int>(*instance, "Limit"), std::nullopt);
  EXPECT_EQ(get_array<int>(*instance, "levels"), (std::vector<int>{-1, 0, 1}));
  EXPECT_STREQ(instance->propertyArrays->type, "sint16");

  const Owner<NamedInstance> named =
      make_named_instance(make_instance_name("CIM_Fan"), std::move(instance));
  ASSERT_TRUE(named);
  EXPECT_EQ(get<std::string>(*named, "ElementName"), "front fan");
}

TEST(Builders, make_parameters_in_their_order) {
  Owner<ParamValue> parameters;
  ASSERT_TRUE(add_parameter(parameters, "RequestedState", std::uint16_t{2}));
  ASSERT_TRUE(add_parameter(parameters, "Force", false));
  EXPECT_STREQ(parameters->name, "RequestedState");
  EXPECT_STREQ(parameters->paramType, "uint16");
  EXPECT_STREQ(parameters->value->text, "2");
  EXPECT_STREQ(parameters->next->paramType, "boolean");
  EXPECT_STREQ(parameters->next->value->text, "FALSE");
  EXPECT_EQ(parameters->next->next, nullptr);
}

TEST(Builders, that_run_out_of_memory_leave_nothing) {
  const long before = support::living_blocks();
  const std::size_t allocations = support::fail_each_allocation(
      [&] {
        Owner<ParamValue> parameters;
        add_parameter(parameters, "State", std::uint16_t{2});
        Owner<KeyBinding> keys;
        add_key(keys, "DeviceID", "fan1");
        const Owner<InstanceName> name = make_instance_name("CIM_Fan", std::move(keys));
      },
      [&] { EXPECT_EQ(support::living_blocks(), before); });
  EXPECT_GT(allocations, 5U);
}

constexpr const char* document =
    "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"7\"/></CIM>";

TEST(Documents, are_read) {
  const Owner<CIM> tree = parse(document);
  ASSERT_TRUE(tree);
  EXPECT_STREQ(tree->message->id, "7");
}

TEST(Documents, without_a_cim_element_are_nothing_and_leave_the_one_before_alone) {
  const Owner<CIM, ReaderLock> tree = parse<ReaderLock>(document);
  ASSERT_TRUE(tree);
  EXPECT_FALSE(parse<ReaderLock>("<?xml version=\"1.0\"?><MESSAGE ID=\"8\"/>"));
  EXPECT_STREQ(tree->message->id, "7");
}

TEST(Indications, give_their_instance) {
  const Owner<Instance> instance = indication(
      "POST / HTTP/1.1\r\n\r\n<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
      "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEEXPREQ>"
      "<EXPMETHODCALL NAME=\"ExportIndication\"><EXPPARAMVALUE NAME=\"NewIndication\">"
      "<INSTANCE CLASSNAME=\"CIM_AlertIndication\"><PROPERTY NAME=\"PerceivedSeverity\" "
      "TYPE=\"uint16\"><VALUE>5</VALUE></PROPERTY></INSTANCE></EXPPARAMVALUE></EXPMETHODCALL>"
      "</SIMPLEEXPREQ></MESSAGE></CIM>");
  ASSERT_TRUE(instance);
  EXPECT_EQ(class_of(*instance), "CIM_AlertIndication");
  EXPECT_EQ(get<std::uint16_t>(*instance, "PerceivedSeverity"), 5);
}

TEST(Indications, of_another_text_are_nothing) {
  EXPECT_FALSE(indication(document));
  EXPECT_FALSE(indication<ReaderLock>(nullptr));
}

}  // namespace

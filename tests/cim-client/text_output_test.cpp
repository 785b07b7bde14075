// Results laid out for people.
#include "text_output.h"

#include <gtest/gtest.h>

#include <sstream>

#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

// Shows the two sample fans.
std::string fans_shown(const OutputSettings& settings) {
  std::ostringstream out;
  TextOutput(settings, out).instances(samples::two_fans().get());
  return out.str();
}

constexpr const char* fans_as_table =
    "DeviceID          DesiredSpeed  VariableSpeed  Caption  OperationalStatus\n"
    "fan1                      1200  true                    [2, 5]\n"
    "fan2      18446744073709551615  true                    [2, 5]\n";

constexpr const char* fans_as_blocks =
    "CIM_Fan.DeviceID=\"fan1\"\n"
    "  DeviceID           fan1\n"
    "  DesiredSpeed       1200\n"
    "  VariableSpeed      true\n"
    "  Caption            null\n"
    "  OperationalStatus  [2, 5]\n"
    "\n"
    "CIM_Fan.DeviceID=\"fan2\"\n"
    "  DeviceID           fan2\n"
    "  DesiredSpeed       18446744073709551615\n"
    "  VariableSpeed      true\n"
    "  Caption            null\n"
    "  OperationalStatus  [2, 5]\n";

OutputSettings on_terminal(std::size_t columns) {
  OutputSettings settings;
  settings.columns = columns;
  return settings;
}

TEST(TextOutput, instances_are_a_table_where_it_fits_the_terminal) {
  EXPECT_EQ(fans_shown(on_terminal(73)), fans_as_table);
}

TEST(TextOutput, instances_are_blocks_where_a_table_is_one_column_too_wide) {
  EXPECT_EQ(fans_shown(on_terminal(72)), fans_as_blocks);
}

TEST(TextOutput, instances_are_blocks_where_there_is_no_terminal) {
  EXPECT_EQ(fans_shown({}), fans_as_blocks);
}

TEST(TextOutput, the_layout_can_be_chosen) {
  OutputSettings settings = on_terminal(20);
  settings.layout = Layout::Table;
  EXPECT_EQ(fans_shown(settings), fans_as_table);
  settings = on_terminal(200);
  settings.layout = Layout::Blocks;
  EXPECT_EQ(fans_shown(settings), fans_as_blocks);
}

TEST(TextOutput, chosen_properties_come_in_the_order_chosen) {
  OutputSettings settings = on_terminal(40);
  settings.properties = {"desiredspeed", "DeviceID", "NoSuch"};
  EXPECT_EQ(fans_shown(settings),
            "        DesiredSpeed  DeviceID\n"
            "                1200  fan1\n"
            "18446744073709551615  fan2\n");
}

TEST(TextOutput, a_table_of_several_classes_says_which) {
  const NamedInstanceOwner fans = samples::two_fans();
  std::free(fans->next->instance->className->name);
  fans->next->instance->className->name = new_text("ACME_Fan");
  OutputSettings settings = on_terminal(40);
  settings.properties = {"DeviceID"};
  std::ostringstream out;
  TextOutput(settings, out).instances(fans.get());
  EXPECT_EQ(out.str(),
            "CLASS     DeviceID\n"
            "CIM_Fan   fan1\n"
            "ACME_Fan  fan2\n");
}

TEST(TextOutput, nothing_found_is_nothing_written) {
  std::ostringstream out;
  TextOutput output(on_terminal(80), out);
  output.instances(nullptr);
  output.class_names(nullptr);
  output.classes(nullptr);
  output.paths({});
  output.objects(nullptr);
  EXPECT_EQ(out.str(), "");
}

TEST(TextOutput, names_stand_one_per_line) {
  const InstanceNameOwner names = samples::instance_name("CIM_A", {{"K", "x\x1b[1m"}});
  names->next = samples::instance_name("CIM_B", {{"K", "2"}}).release();
  const ClassNameOwner classes(CIMC_CreateClassName("CIM_A"));
  classes->next = CIMC_CreateClassName("CIM_B");
  std::ostringstream out;
  TextOutput output(on_terminal(80), out);
  output.paths(paths_of(names.get()));
  output.class_names(classes.get());
  EXPECT_EQ(out.str(), "CIM_A.K=\"x\\x1b[1m\"\nCIM_B.K=\"2\"\nCIM_A\nCIM_B\n");
}

TEST(TextOutput, one_instance_is_shown_under_the_name_that_was_asked_for) {
  const NamedInstanceOwner fan(samples::fan("fan1", "5"));
  OutputSettings settings;
  settings.properties = {"DesiredSpeed"};
  std::ostringstream out;
  TextOutput(settings, out).instance(*fan->instanceName, *fan->instance);
  EXPECT_EQ(out.str(), "CIM_Fan.DeviceID=\"fan1\"\n  DesiredSpeed  5\n");
}

TEST(TextOutput, objects_are_shown_with_their_paths_without_host) {
  const NamedInstanceOwner fan(samples::fan("fan1", "5"));
  const ValueReferenceOwner reference =
      samples::reference("device", "root/cimv2", "CIM_Fan", {{"DeviceID", "fan1"}});
  const ObjectWithPathOwner object(new_record<ObjectWithPath>());
  std::swap(object->instancePath, reference->instancePath);
  std::swap(object->instance, fan->instance);
  OutputSettings settings;
  settings.properties = {"DesiredSpeed"};
  std::ostringstream out;
  TextOutput(settings, out).objects(object.get());
  EXPECT_EQ(out.str(), "/root/cimv2:CIM_Fan.DeviceID=\"fan1\"\n  DesiredSpeed  5\n");
}

TEST(TextOutput, a_method_shows_what_it_returned_and_its_parameters) {
  const std::unique_ptr<ReturnValue, Release<Free_ReturnValue>> result(new_record<ReturnValue>());
  result->paramType = new_text("uint32");
  AddToValueList(&result->value, "0");
  const ParamValueOwner parameter(new_record<ParamValue>());
  parameter->name = new_text("Reached");
  parameter->paramType = new_text("boolean");
  AddToValueList(&parameter->value, "TRUE");
  std::ostringstream out;
  TextOutput output({}, out);
  output.method_result({result.get(), parameter.get()});
  EXPECT_EQ(out.str(), "returned 0\n  Reached  true\n");
}

TEST(TextOutput, a_method_may_return_nothing) {
  std::ostringstream out;
  TextOutput output({}, out);
  output.method_result({nullptr, nullptr});
  EXPECT_EQ(out.str(), "returned nothing\n");
}

TEST(TextOutput, indications_are_blocks_with_an_empty_line_behind) {
  const NamedInstanceOwner fan(samples::fan("fan1", "5"));
  OutputSettings settings;
  settings.properties = {"DeviceID"};
  std::ostringstream out;
  TextOutput output(settings, out);
  output.indication(*fan->instance);
  output.indication(*fan->instance);
  EXPECT_EQ(out.str(), "CIM_Fan\n  DeviceID  fan1\n\nCIM_Fan\n  DeviceID  fan1\n\n");
}

}  // namespace
}  // namespace cli

// Names and paths as texts.
#include "path_text.h"

#include <gtest/gtest.h>

#include "object_path.h"
#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

std::string round_trip(std::string_view path) {
  return path_text(*make_instance_name(parse_object(path)));
}

TEST(PathText, what_is_written_is_what_was_typed) {
  for (const char* path : {"CIM_Fan.DeviceID=\"fan1\"", "CIM_X.A=5,B=true,C=-1.5", "CIM_X=@",
                           "CIM_X=\"only\"", R"(CIM_X.A="say \"hi\" \\ bye",B="two\nlines")"})
    EXPECT_EQ(round_trip(path), path);
}

TEST(PathText, references_are_quoted_inside_keys) {
  ObjectUri path = parse_object(R"(CIM_Has.Part="/root/cimv2:CIM_Fan.DeviceID=\"fan1\"")");
  path.keys[0].kind = Key::Kind::Reference;
  EXPECT_EQ(path_text(*make_instance_name(path)),
            R"(CIM_Has.Part="/root/cimv2:CIM_Fan.DeviceID=\"fan1\"")");
}

TEST(PathText, paths_show_host_and_namespace_when_given) {
  const ValueReferenceOwner full =
      samples::reference("device", "root/cimv2", "CIM_Fan", {{"DeviceID", "fan1"}});
  EXPECT_EQ(path_text(view_of(*full)), "//device/root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
  EXPECT_EQ(local_path_text(view_of(*full)), "/root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
  const ValueReferenceOwner local =
      samples::reference("", "root/cimv2", "CIM_Fan", {{"DeviceID", "fan1"}});
  EXPECT_EQ(path_text(view_of(*local)), "/root/cimv2:CIM_Fan.DeviceID=\"fan1\"");
  EXPECT_EQ(path_text(view_of(*samples::reference("", "", "CIM_Fan", {}))), "CIM_Fan");
  EXPECT_EQ(path_text(view_of(*samples::reference("h", "root", "CIM_Fan", {}))),
            "//h/root:CIM_Fan");
}

TEST(PathText, an_empty_reference_is_an_empty_text) {
  const ValueReferenceOwner empty(new_record<ValueReference>());
  EXPECT_EQ(path_text(view_of(*empty)), "");
}

TEST(PathText, a_key_value_without_text_or_type_is_an_empty_text) {
  const InstanceNameOwner name = samples::instance_name("CIM_X", {});
  append(&name->keyBindings, new_record<KeyBinding>());
  name->keyBindings->keyValue = new_record<KeyValue>();
  EXPECT_EQ(path_text(*name), "CIM_X.=\"\"");
}

TEST(PathText, references_nested_beyond_reason_are_left_out) {
  InstanceNameOwner name = samples::instance_name("CIM_X", {{"A", "1"}});
  for (int level = 0; level < 40; ++level) {
    InstanceNameOwner outer = samples::instance_name("CIM_X", {{"A", "1"}});
    Free_KeyValue(outer->keyBindings->keyValue);
    outer->keyBindings->keyValue = nullptr;
    outer->keyBindings->valueReference = new_record<ValueReference>();
    outer->keyBindings->valueReference->instanceName = name.release();
    name = std::move(outer);
  }
  const std::string text = path_text(*name);
  EXPECT_LT(text.size(), 10'000U) << "each level doubles the backslashes";
  EXPECT_NE(text.find("..."), std::string::npos);
}

}  // namespace
}  // namespace cli

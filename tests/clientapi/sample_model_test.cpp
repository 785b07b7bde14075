// The sample model behind the broker's interface, through the public operations.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "cim_client.h"

namespace {

class SampleModel : public testing::Test {
 protected:
  SampleModel() : handle_(client_Configuration("", 0, "root/cimv2", 0, "user", "secret")) {
    handle_->interface = 1;
    KeyBinding* keys = nullptr;
    AddToKeyBindingListRef(&keys, "DeviceID", "fan1", "string", nullptr);
    AddToInstanceNameList(&fan_, keys, CIMC_CreateClassName("CIM_Fan"), nullptr);
  }
  ~SampleModel() override {
    Free_InstanceName(fan_);
    Free_Error(error_);
    Free_client_Configuration(handle_);
  }

  // The text of a property of the fan.
  std::string property(const char* name) {
    Instance* instance = GetInstance(handle_, fan_, 0, 0, 0, nullptr, &error_);
    std::string text = "(none)";
    for (const Property* p = instance ? instance->properties : nullptr; p; p = p->next)
      if (std::string(p->name) == name && p->value) text = p->value->text;
    Free_Instance(instance);
    return text;
  }

  struct client_Configuration* handle_;
  InstanceName* fan_ = nullptr;
  Error* error_ = nullptr;
};

TEST_F(SampleModel, fans_are_enumerated) {
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  InstanceName* names = EnumerateInstanceNames(handle_, name, &error_);
  std::vector<std::string> ids;
  for (const InstanceName* n = names; n; n = n->next)
    ids.emplace_back(n->keyBindings->keyValue->text);
  EXPECT_EQ(ids, (std::vector<std::string>{"fan1", "fan2", "fan3"}));
  Free_InstanceName(names);
  Free_ClassName(name);
}

TEST_F(SampleModel, a_fan_is_changed_and_stopped) {
  Instance instance{};
  char speed[] = "5100";
  AddToProeprtyList(&instance.properties, "DesiredSpeed", speed, "uint64");
  NamedInstance modified{fan_, &instance, nullptr};
  EXPECT_EQ(ModifyInstance(handle_, &modified, 0, nullptr, &error_), 0);
  EXPECT_EQ(property("DesiredSpeed"), "5100");
  ParamValue* out = nullptr;
  EXPECT_EQ(invokeMethod(handle_, fan_, "Stop", nullptr, &out, &error_), 0);
  EXPECT_EQ(property("ActiveCooling"), "FALSE");
  EXPECT_EQ(invokeMethod(handle_, fan_, "Stop", nullptr, &out, &error_), 3);  // stands already
  EXPECT_EQ(error_, nullptr);
  Free_Property(instance.properties);
  Free_ParamValue(out);
}

TEST_F(SampleModel, what_is_not_there_gives_the_model_s_error) {
  Free_PCData(fan_->keyBindings->keyValue->text);
  Clone_PCData("fan99", &fan_->keyBindings->keyValue->text);
  EXPECT_EQ(GetInstance(handle_, fan_, 0, 0, 0, nullptr, &error_), nullptr);
  ASSERT_NE(error_, nullptr);
  EXPECT_STREQ(error_->code, "6");
}

TEST_F(SampleModel, associations_are_followed) {
  ObjectName object{nullptr, fan_};
  ClassName* result = CIMC_CreateClassName("CIM_ComputerSystem");
  ObjectPath* systems =
      AssociatorNames(handle_, &object, nullptr, result, nullptr, nullptr, &error_);
  ASSERT_NE(systems, nullptr);
  EXPECT_STREQ(systems->instancePath->instanceName->className->name, "CIM_ComputerSystem");
  EXPECT_EQ(systems->next, nullptr);
  ObjectWithPath* links = References(handle_, &object, nullptr, nullptr, 0, 0, nullptr, &error_);
  ASSERT_NE(links, nullptr);
  EXPECT_NE(links->instance->propertyReferences, nullptr);
  EXPECT_EQ(error_, nullptr);
  Free_ObjectWithPath(links);
  Free_ObjectPath(systems);
  Free_ClassName(result);
}

TEST_F(SampleModel, a_query_selects) {
  ObjectWithPath* found =
      ExecQuery(handle_, "WQL", "SELECT * FROM CIM_Fan WHERE DeviceID = \"fan2\"", &error_);
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->instancePath->instanceName->keyBindings->keyValue->text, "fan2");
  EXPECT_EQ(found->next, nullptr);
  Free_ObjectWithPath(found);
}

}  // namespace
